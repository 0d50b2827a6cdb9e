#include "platform/gpu/frame_pacer.hpp"

#include <algorithm>
#include <utility>

namespace platform {

using Clock = std::chrono::steady_clock;

FramePacer::FramePacer(std::function<void()> tick) : tick_(std::move(tick)) {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { fire(); });
}

void FramePacer::setFramesPerSecond(int framesPerSecond) {
    framesPerSecond_ = std::max(framesPerSecond, 1);
}

void FramePacer::start() {
    if (!timer_.isActive()) {
        next_ = Clock::now();
        schedule();
    }
}

void FramePacer::stop() {
    timer_.stop();
}

void FramePacer::schedule() {
    using std::chrono::milliseconds;
    const auto wait = std::chrono::round<milliseconds>(next_ - Clock::now());
    timer_.start(std::max(wait, milliseconds(0)));
}

void FramePacer::fire() {
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
