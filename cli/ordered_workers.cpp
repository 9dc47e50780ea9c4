#include "cli/ordered_workers.h"

namespace vantro {

Workers::Workers(std::size_t threads) {
    for (std::size_t i = 1; i < threads; ++i) threads_.emplace_back([this] { work(); });
}

Workers::~Workers() {
    {
        const std::lock_guard lock(mutex_);
        closing_ = true;
    }
    changed_.notify_all();
    for (std::thread& thread : threads_) thread.join();
}

void Workers::run(std::function<void()> task) {
    if (threads_.empty()) return task();
    {
        const std::lock_guard lock(mutex_);
        tasks_.push_back(std::move(task));
    }
    changed_.notify_one();
}

bool Workers::runOne() {
    std::unique_lock lock(mutex_);
    if (tasks_.empty()) return false;
    const std::function<void()> task = std::move(tasks_.front());
    tasks_.pop_front();
    lock.unlock();
    task();
    return true;
}

void Workers::work() {
    for (;;) {
        {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [this] { return closing_ || !tasks_.empty(); });
            if (closing_) return;  // what nobody waits for any more is left undone
        }
        runOne();
    }
}

}  // namespace vantro
