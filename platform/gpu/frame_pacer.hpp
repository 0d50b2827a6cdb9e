#pragma once

#include <QTimer>

#include <chrono>
#include <functional>

namespace platform {

/// Calls back at a steady rate: deadlines lie on a fixed grid, so that the rounding of timers to
/// milliseconds does not add up, and a late frame does not push the next ones.
class FramePacer {
  public:
    explicit FramePacer(std::function<void()> tick);

    void setFramesPerSecond(int framesPerSecond); ///< at least 1
    [[nodiscard]] int framesPerSecond() const { return framesPerSecond_; }
    void start(); ///< does nothing while running
    void stop();
    [[nodiscard]] bool isRunning() const { return timer_.isActive(); }

  private:
    void schedule();
    void fire();

    std::function<void()> tick_;
    int framesPerSecond_ = 60;
    std::chrono::steady_clock::time_point next_;
    QTimer timer_;
};

} // namespace platform
