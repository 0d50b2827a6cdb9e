#include "platform/ui/cells/press_tracker.hpp"

namespace platform {
namespace {

bool contains(const core::Rect& rect, core::Point point) {
    return point.x >= rect.origin.x && point.x < rect.maxX() && point.y >= rect.origin.y &&
           point.y < rect.maxY();
}

} // namespace

PressTracker::Result PressTracker::enter(Phase phase) {
    const bool wasPressed = isPressed();
    phase_ = phase;
    return wasPressed == isPressed() ? Result::nothing : Result::changed;
}

PressTracker::Result PressTracker::press(core::Point point, const core::Rect& bounds) {
    return isTracking() || !contains(bounds, point) ? Result::nothing : enter(Phase::inside);
}

PressTracker::Result PressTracker::move(core::Point point, const core::Rect& bounds) {
    if (phase_ != Phase::inside && phase_ != Phase::outside) {
        return Result::nothing;
    }
    return enter(contains(bounds, point) ? Phase::inside : Phase::outside);
}

PressTracker::Result PressTracker::release(core::Point point, const core::Rect& bounds) {
    if (phase_ != Phase::inside && phase_ != Phase::outside) {
        return Result::nothing;
    }
    const bool isClick = contains(bounds, point);
    const Result result = enter(Phase::idle);
    return isClick ? Result::clicked : result;
}

PressTracker::Result PressTracker::pressKey() {
    return isTracking() ? Result::nothing : enter(Phase::key);
}

PressTracker::Result PressTracker::releaseKey() {
    if (phase_ != Phase::key) {
        return Result::nothing;
    }
    enter(Phase::idle);
    return Result::clicked;
}

PressTracker::Result PressTracker::cancel() {
    return enter(Phase::idle);
}

} // namespace platform
