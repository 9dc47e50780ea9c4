// Work shared among threads, with the results in the order of the tasks.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <map>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace vantro {

/// Each thread fetches a task, works on it and delivers its result, so that a task stays on one processor. One thread
/// at a time fetches, and one at a time takes results. A few tasks per thread are in progress: enough that no thread
/// waits long, and few enough that memory stays bounded.
template <class Next, class Work, class Take>
class OrderedWork {
public:
    using Task = typename std::invoke_result_t<Next&>::value_type;
    using Result = std::invoke_result_t<Work&, Task>;

    static constexpr std::size_t tasksAThread = 4;

    OrderedWork(std::size_t threads, Next next, Work work, Take take)
        : most_(tasksAThread * threads), next_(std::move(next)), work_(std::move(work)), take_(std::move(take)) {}

    /// One thread's share. An exception ends the work of all threads and is stored.
    void run() {
        try {
            while (std::optional<Numbered> task = fetch()) deliver(task->number, work_(std::move(task->task)));
        } catch (...) {
            const std::lock_guard lock(mutex_);
            if (!failure_) failure_ = std::current_exception();
            changed_.notify_all();
        }
    }

    /// Throws the stored exception, if any.
    void rethrow() const {
        if (failure_) std::rethrow_exception(failure_);
    }

private:
    struct Numbered {
        std::size_t number;
        Task task;
    };

    std::optional<Numbered> fetch() {
        const std::lock_guard fetching(fetching_);
        if (!waitForRoom()) return std::nullopt;
        std::optional<Task> task = next_();
        if (task) return Numbered{fetched_++, std::move(*task)};
        ended_ = true;
        return std::nullopt;
    }

    bool waitForRoom() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return failure_ || fetched_ - taken_ < most_; });
        return !failure_ && !ended_;
    }

    /// The thread that delivers the next result in order also takes the results that waited for it, and those that
    /// arrive meanwhile.
    void deliver(std::size_t number, Result result) {
        std::unique_lock lock(mutex_);
        results_.emplace(number, std::move(result));
        if (std::exchange(isTaking_, true)) return;
        while (!failure_ && !results_.empty() && results_.begin()->first == taken_) {
            auto first = results_.extract(results_.begin());
            lock.unlock();
            take_(std::move(first.mapped()));
            lock.lock();
            ++taken_;
            changed_.notify_all();
        }
        isTaking_ = false;
    }

    const std::size_t most_;
    Next next_;
    Work work_;
    Take take_;

    std::mutex fetching_;
    std::size_t fetched_ = 0;  // changed only under fetching_
    bool ended_ = false;       // likewise

    std::mutex mutex_;  // guards what follows
    std::condition_variable changed_;
    std::map<std::size_t, Result> results_;  // waiting for earlier ones
    std::size_t taken_ = 0;
    bool isTaking_ = false;
    std::exception_ptr failure_;
};

/// Passes every task that `next` returns to `work`, until it returns nothing, and every result, in order, to `take`.
/// The caller's thread is one of the threads; with one thread, no other is started. Throws what one of the three
/// throws.
template <class Next, class Work, class Take>
void workInOrder(std::size_t threads, Next next, Work work, Take take) {
    OrderedWork<Next, Work, Take> ordered(threads, std::move(next), std::move(work), std::move(take));
    std::vector<std::thread> others;
    try {
        for (std::size_t thread = 1; thread < threads; ++thread) others.emplace_back([&ordered] { ordered.run(); });
    } catch (const std::system_error&) {
        // The system allows no more threads: those that have started do the work.
    }
    ordered.run();
    for (std::thread& other : others) other.join();
    ordered.rethrow();
}

}  // namespace vantro
