#pragma once

#include "driftwood/util/timer_queue.hpp"

#include <functional>
#include <utility>

namespace driftwood {

/// Lets only the last of a burst of events through, some time after it. Drive it from one thread;
/// the action runs on a background thread, beside those of other throttlers, and has to go to the
/// main thread for anything that touches the interface. Destroying the throttler cancels what
/// waits.
class UIEventThrottler {
  public:
    /// `interval` is the quiet time that lets an action through. The timers outlive the throttler.
    explicit UIEventThrottler(core::Seconds interval, TimerQueue& timers = TimerQueue::shared())
        : interval_(interval), timers_(timers) {}

    [[nodiscard]] core::Seconds interval() const { return interval_; }

    /// Runs `action` once `interval` has passed, unless another call or `cancelAll` comes before.
    void throttle(std::function<void()> action) {
        timer_.cancel(); // before the next one is made: that one must not be due first
        timer_ = timers_.schedule(interval_, std::move(action));
    }

    /// Drops the action that waits. One that is running already runs to its end.
    void cancelAll() { timer_.cancel(); }

  private:
    const core::Seconds interval_;
    TimerQueue& timers_;
    core::Subscription timer_;
};

} // namespace driftwood
