// Work shared among threads whose results come out in the order in which the work went in.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace vantro {

/// The threads, the caller's own among them: it works along while it waits. A single one runs its tasks while they are
/// handed in.
class Workers {
public:
    explicit Workers(std::size_t threads);
    ~Workers();
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    std::size_t threads() const { return threads_.size() + 1; }
    void run(std::function<void()> task);

    /// Runs the task that waits longest here and now; false when none waits.
    bool runOne();

private:
    void work();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> tasks_;
    bool closing_ = false;
    std::vector<std::thread> threads_;
};

/// Hands every result to `take` on the caller's thread, in order. So many tasks are under way at a time that no
/// thread waits, and no more, so that memory stays bounded.
template <class Result>
class OrderedWork {
public:
    using Take = std::function<void(Result)>;

    OrderedWork(std::size_t threads, Take take) : workers_(threads), take_(std::move(take)) {}

    /// Hands in a task and takes what is done. What a task throws comes out of here or of `finish`.
    void add(std::function<Result()> task) {
        auto work = std::make_shared<std::packaged_task<Result()>>(std::move(task));
        underWay_.push_back(work->get_future());
        workers_.run([work] { (*work)(); });
        while (!underWay_.empty() && (underWay_.size() > tasksAThread * workers_.threads() || isFirstDone())) {
            takeFirst();
        }
    }

    /// Takes the results that are left.
    void finish() {
        while (!underWay_.empty()) takeFirst();
    }

private:
    static constexpr std::size_t tasksAThread = 4;

    bool isFirstDone() const {
        return underWay_.front().wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    }

    void takeFirst() {
        while (!isFirstDone() && workers_.runOne()) {}
        std::future<Result> first = std::move(underWay_.front());
        underWay_.pop_front();
        take_(first.get());
    }

    Workers workers_;
    Take take_;
    std::deque<std::future<Result>> underWay_;
};

}  // namespace vantro
