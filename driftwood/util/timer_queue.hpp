#pragma once

#include "core/clock.hpp"
#include "core/subscription.hpp"

#include <cstddef>
#include <functional>
#include <memory>

namespace driftwood {

/// Runs tasks later, on a thread that is not the caller's as a rule. Any thread.
class TimerQueue {
  public:
    virtual ~TimerQueue() = default;

    /// Runs `task` once after `delay`; a delay below 0 counts as 0. The task does not run when the
    /// subscription ends before it has begun; once it has begun, ending it neither stops it nor
    /// waits for it. The subscription may outlive the queue. Tasks must not throw.
    [[nodiscard]] virtual core::Subscription schedule(core::Seconds delay,
                                                      std::function<void()> task) = 0;

    /// The queue of the process, on background threads that start when they are needed: a long task
    /// delays no other one.
    static TimerQueue& shared();
};

/// Threads of its own that begin the tasks in the order of their times. What has not begun when it
/// is destroyed does not run; what has begun is waited for, so a task must not destroy the queue.
/// Any thread.
class WorkerTimerQueue final : public TimerQueue {
  public:
    /// So many threads at most; with one, tasks run one after another.
    explicit WorkerTimerQueue(std::size_t threads = 1);
    ~WorkerTimerQueue() override;

    [[nodiscard]] core::Subscription schedule(core::Seconds delay,
                                              std::function<void()> task) override;

  private:
    class Worker;
    std::shared_ptr<Worker> worker_;
};

/// Runs due tasks by hand, on the calling thread: for tests.
class ManualTimerQueue final : public TimerQueue {
  public:
    /// The clock outlives the queue.
    explicit ManualTimerQueue(core::ManualClock& clock);
    ~ManualTimerQueue() override;

    [[nodiscard]] core::Subscription schedule(core::Seconds delay,
                                              std::function<void()> task) override;

    /// Moves the clock on, stopping at the time of each task that falls due to run it.
    void advance(core::Seconds by);

  private:
    class Tasks;
    core::ManualClock& clock_;
    std::shared_ptr<Tasks> tasks_;
};

} // namespace driftwood
