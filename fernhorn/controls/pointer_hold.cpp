#include "fernhorn/controls/pointer_hold.hpp"

#include <cmath>

namespace fernhorn {
namespace {

double distance(core::Point a, core::Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

} // namespace

void PointerHold::begin(core::Point at) {
    home_ = at;
    last_ = at;
    position_ = at;
    isGoingHome_ = false;
}

PointerHold::Move PointerHold::move(core::Point at) {
    if (!home_) {
        return {at, false};
    }
    // Events from before the pointer was put back may still come; the first one that is nearer to
    // home than to where the pointer was seen last comes after it, perhaps with some way already.
    if (isGoingHome_ && distance(at, *home_) < distance(at, last_)) {
        isGoingHome_ = false;
        last_ = *home_;
    }
    position_ = {position_.x + at.x - last_.x, position_.y + at.y - last_.y};
    last_ = at;
    const bool putBack = !isGoingHome_ && distance(at, *home_) > stray;
    isGoingHome_ = isGoingHome_ || putBack;
    return {position_, putBack};
}

} // namespace fernhorn
