#include "platform/controls/press_tracker.hpp"

namespace platform {
namespace {

bool contains(const core::Rect& rect, core::Point point) {
    return point.x >= rect.origin.x && point.x < rect.maxX() && point.y >= rect.origin.y &&
           point.y < rect.maxY();
}

} // namespace

PressStep PressTracker::begin(Phase phase) {
    phase_ = phase;
    return PressStep::began;
}

PressStep PressTracker::end(PressStep step) {
    phase_ = Phase::idle;
    return step;
}

PressStep PressTracker::press(core::Point point, const core::Rect& bounds) {
    return isTracking() || !contains(bounds, point) ? PressStep::none : begin(Phase::inside);
}

PressStep PressTracker::move(core::Point point, const core::Rect& bounds, bool isButtonDown) {
    if (!isByMouse()) {
        return PressStep::none;
    }
    if (!isButtonDown) {
        return cancel();
    }
    const Phase phase = contains(bounds, point) ? Phase::inside : Phase::outside;
    if (phase == phase_) {
        return PressStep::none;
    }
    phase_ = phase;
    return PressStep::crossed;
}

PressStep PressTracker::release(core::Point point, const core::Rect& bounds) {
    if (!isByMouse()) {
        return PressStep::none;
    }
    return end(contains(bounds, point) ? PressStep::clicked : PressStep::cancelled);
}

PressStep PressTracker::pressKey(int key) {
    if (isTracking()) {
        return PressStep::none;
    }
    key_ = key;
    return begin(Phase::key);
}

PressStep PressTracker::releaseKey(int key) {
    return isByKey() && key == key_ ? end(PressStep::clicked) : PressStep::none;
}

PressStep PressTracker::cancel() {
    return isTracking() ? end(PressStep::cancelled) : PressStep::none;
}

} // namespace platform
