// Work shared among threads whose results come out in the order in which the work went in.
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

/// Each thread fetches a task, works on it and hands its result on, so that a task stays on one processor. Fetching and
/// taking are done by one thread at a time. So many tasks are under way that no thread waits long, and no more, so
/// that memory stays bounded.
template <class Next, class Work, class Take>
class OrderedWork {
public:
    using Task = typename std::invoke_result_t<Next&>::value_type;
    using Result = std::invoke_result_t<Work&, Task>;

    static constexpr std::size_t tasksAThread = 4;

    OrderedWork(std::size_t threads, Next next, Work work, Take take)
        : most_(tasksAThread * threads), next_(std::move(next)), work_(std::move(work)), take_(std::move(take)) {}

    /// One thread's share. What is thrown ends the work of all threads and is kept.
    void run() {
        try {
            while (std::optional<Numbered> task = fetch()) deliver(task->number, work_(std::move(task->task)));
        } catch (...) {
            const std::lock_guard lock(mutex_);
            if (!failure_) failure_ = std::current_exception();
            changed_.notify_all();
        }
    }

    /// Throws what was kept.
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

    /// Whoever brings the result that is next hands on all that waited for it, and what comes meanwhile.
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
    std::size_t fetched_ = 0;  // changed by who fetches alone
    bool ended_ = false;       // the same

    std::mutex mutex_;  // guards what follows
    std::condition_variable changed_;
    std::map<std::size_t, Result> results_;  // that wait for others before them
    std::size_t taken_ = 0;
    bool isTaking_ = false;
    std::exception_ptr failure_;
};

/// Gives every task that `next` gives (nothing ends them) to `work` and every result, in order, to `take`. The caller's
/// thread is one of the threads; with one thread, no other is made. Throws what one of the three throws.
template <class Next, class Work, class Take>
void workInOrder(std::size_t threads, Next next, Work work, Take take) {
    OrderedWork<Next, Work, Take> ordered(threads, std::move(next), std::move(work), std::move(take));
    std::vector<std::thread> others;
    try {
        for (std::size_t thread = 1; thread < threads; ++thread) others.emplace_back([&ordered] { ordered.run(); });
    } catch (const std::system_error&) {
        // The system gives no more threads: those that are there do the work.
    }
    ordered.run();
    for (std::thread& other : others) other.join();
    ordered.rethrow();
}

}  // namespace vantro
