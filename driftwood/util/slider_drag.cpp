#include "driftwood/util/slider_drag.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace driftwood {
namespace {

bool contains(const core::Rect& rect, const core::Point& point) {
    return point.x >= rect.origin.x && point.x < rect.maxX() && point.y >= rect.origin.y &&
           point.y < rect.maxY();
}

} // namespace

double SliderDrag::press(const SliderParts& parts, double place, const core::Point& point) {
    isDragging_ = true;
    const bool isOnKnob = contains(knobRect(parts, place), point);
    grip_ = isOnKnob ? place - placeAlong(parts, point) : 0;
    return isOnKnob ? place : move(parts, point);
}

double SliderDrag::move(const SliderParts& parts, const core::Point& point) const {
    const double place = placeAlong(parts, point) + grip_;
    return parts.kind == SliderKind::circular ? place - std::floor(place)
                                              : std::clamp(place, 0.0, 1.0);
}

bool SliderDrag::end() {
    return std::exchange(isDragging_, false);
}

} // namespace driftwood
