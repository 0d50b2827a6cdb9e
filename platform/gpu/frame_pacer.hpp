#pragma once

#include "platform/system/deadline_descriptor.hpp"

#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

namespace platform {

/// Calls back at a steady rate: deadlines lie on a fixed grid, so that the rounding of timers to
/// milliseconds does not add up, and a late frame does not push the next ones. Where the operating
/// system has them the deadlines are exact. Nothing wakes while it is stopped. Main thread.
class FramePacer {
  public:
    explicit FramePacer(std::function<void()> tick);

    void setFramesPerSecond(int framesPerSecond); ///< at least 1
    [[nodiscard]] int framesPerSecond() const { return framesPerSecond_; }
    void start(); ///< does nothing while running
    void stop();
    [[nodiscard]] bool isRunning() const { return isRunning_; }

  private:
    void schedule();
    void fire();

    std::function<void()> tick_;
    int framesPerSecond_ = 60;
    bool isRunning_ = false;
    std::chrono::steady_clock::time_point next_;
    DeadlineDescriptor deadline_;
    std::unique_ptr<QSocketNotifier> notifier_; // null without exact deadlines
    QTimer timer_;                              // in their place
};

} // namespace platform
