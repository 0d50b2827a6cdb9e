#include "driftwood/util/timer_queue.hpp"

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace driftwood {
namespace {

/// Of two tasks of the same time the one that was scheduled first comes first.
using Key = std::pair<core::Instant, std::uint64_t>;
using TaskMap = std::map<Key, std::function<void()>>;

core::Instant deadline(const core::Clock& clock, core::Seconds delay) {
    return clock.now() + (delay > core::Seconds(0) ? delay : core::Seconds(0)); // not a number: 0
}

/// How long the worker sleeps at most; what is due later is looked at again.
constexpr core::Seconds longestSleep{3600};

} // namespace

TimerQueue& TimerQueue::shared() {
    static WorkerTimerQueue queue(64);
    return queue;
}

class WorkerTimerQueue::Worker {
  public:
    explicit Worker(std::size_t threads) : most_(std::max<std::size_t>(threads, 1)) {}

    Key add(core::Instant time, std::function<void()> task) {
        const std::scoped_lock lock(mutex_);
        const Key key(time, ++lastNumber_);
        tasks_.emplace(key, std::move(task));
        if (tasks_.begin()->first == key) {
            watchTheTime();
        }
        return key;
    }

    void remove(const Key& key) {
        TaskMap::node_type removed; // destroyed outside of the lock
        const std::scoped_lock lock(mutex_);
        removed = tasks_.extract(key);
    }

    void stop() {
        TaskMap dropped;
        std::vector<std::thread> threads;
        {
            const std::scoped_lock lock(mutex_);
            isStopped_ = true;
            dropped.swap(tasks_);
            threads.swap(threads_);
            changed_.notify_all();
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }

  private:
    /// Somebody has to wait for the first task: one that waits already, or another thread. With the
    /// lock.
    void watchTheTime() {
        if (waiting_ > 0) {
            changed_.notify_one();
        } else if (threads_.size() < most_ && !isStopped_) {
            threads_.emplace_back([this] { run(); });
        }
    }

    void run() {
        std::unique_lock lock(mutex_);
        while (!isStopped_) {
            const core::Instant now = core::Clock::system().now();
            if (tasks_.empty()) {
                ++waiting_;
                changed_.wait(lock);
                --waiting_;
            } else if (const auto next = tasks_.begin(); next->first.first > now) {
                // A copy, since the task may be taken away while this waits.
                const core::Instant until = std::min(next->first.first, now + longestSleep);
                ++waiting_;
                changed_.wait_until(lock, until);
                --waiting_;
            } else {
                auto due = tasks_.extract(next);
                if (!tasks_.empty()) {
                    watchTheTime();
                }
                lock.unlock();
                due.mapped()();
                due = {}; // what the task holds may come back here, too
                lock.lock();
            }
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    TaskMap tasks_;
    std::uint64_t lastNumber_ = 0;
    bool isStopped_ = false;
    const std::size_t most_;
    std::size_t waiting_ = 0; // threads that wait for a task or its time
    std::vector<std::thread> threads_;
};

WorkerTimerQueue::WorkerTimerQueue(std::size_t threads)
    : worker_(std::make_shared<Worker>(threads)) {}

WorkerTimerQueue::~WorkerTimerQueue() {
    worker_->stop();
}

core::Subscription WorkerTimerQueue::schedule(core::Seconds delay, std::function<void()> task) {
    const Key key = worker_->add(deadline(core::Clock::system(), delay), std::move(task));
    return core::Subscription([worker = std::weak_ptr(worker_), key] {
        if (const auto alive = worker.lock()) {
            alive->remove(key);
        }
    });
}

class ManualTimerQueue::Tasks {
  public:
    TaskMap map;
    std::uint64_t lastNumber = 0;
};

ManualTimerQueue::ManualTimerQueue(core::ManualClock& clock)
    : clock_(clock), tasks_(std::make_shared<Tasks>()) {}

ManualTimerQueue::~ManualTimerQueue() = default;

core::Subscription ManualTimerQueue::schedule(core::Seconds delay, std::function<void()> task) {
    const Key key(deadline(clock_, delay), ++tasks_->lastNumber);
    tasks_->map.emplace(key, std::move(task));
    return core::Subscription([tasks = std::weak_ptr(tasks_), key] {
        if (const auto alive = tasks.lock()) {
            alive->map.erase(key);
        }
    });
}

void ManualTimerQueue::advance(core::Seconds by) {
    const core::Instant end = clock_.now() + by;
    while (!tasks_->map.empty() && tasks_->map.begin()->first.first <= end) {
        const auto due = tasks_->map.extract(tasks_->map.begin());
        clock_.advance(std::max(due.key().first - clock_.now(), core::Seconds(0)));
        due.mapped()();
    }
    clock_.advance(end - clock_.now());
}

} // namespace driftwood
