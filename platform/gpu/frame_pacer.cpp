#include "platform/gpu/frame_pacer.hpp"

#include <algorithm>
#include <utility>

namespace platform {

using Clock = std::chrono::steady_clock;

FramePacer::FramePacer(std::function<void()> tick) : tick_(std::move(tick)) {
    if (deadline_.get() >= 0) {
        notifier_ = std::make_unique<QSocketNotifier>(deadline_.get(), QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, &timer_, [this] { fire(); });
    }
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { fire(); });
}

void FramePacer::setFramesPerSecond(int framesPerSecond) {
    framesPerSecond_ = std::max(framesPerSecond, 1);
}

void FramePacer::start() {
    if (!isRunning_) {
        isRunning_ = true;
        next_ = Clock::now();
        schedule();
    }
}

void FramePacer::stop() {
    if (isRunning_) {
        isRunning_ = false;
        deadline_.clear();
        timer_.stop();
    }
}

void FramePacer::schedule() {
    using std::chrono::milliseconds;
    if (notifier_ != nullptr) {
        deadline_.set(next_);
    } else {
        const auto wait = std::chrono::round<milliseconds>(next_ - Clock::now());
        timer_.start(std::max(wait, milliseconds(0)));
    }
}

void FramePacer::fire() {
    if (!isRunning_) {
        return; // stopped when the deadline had been noticed already
    }
    const auto now = Clock::now();
    const auto interval = std::chrono::nanoseconds(std::chrono::seconds(1)) / framesPerSecond_;
    next_ += interval;
    if (next_ <= now) {
        // Late by a frame or more: skip the deadlines that have passed, stay on the grid.
        next_ += interval * ((now - next_) / interval + 1);
    }
    schedule();
    tick_();
}

} // namespace platform
