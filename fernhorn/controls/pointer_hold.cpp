#include "fernhorn/controls/pointer_hold.hpp"

#include <algorithm>
#include <cmath>

namespace fernhorn {
namespace {

double distance(core::Point a, core::Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// Away from the edges of a stretch, in its middle when it is short.
double awayFromEdges(double at, double from, double length) {
    const double room = std::min(2 * PointerHold::stray, length / 2);
    return std::clamp(at, from + room, from + length - room);
}

} // namespace

void PointerHold::begin(core::Point at, const core::Rect& screen) {
    home_ = {awayFromEdges(at.x, screen.origin.x, screen.size.width),
             awayFromEdges(at.y, screen.origin.y, screen.size.height)};
    beginning_ = at;
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
