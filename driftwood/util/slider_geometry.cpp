#include "driftwood/util/slider_geometry.hpp"

#include "core/fatal.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace driftwood {
namespace {

constexpr double plainKnob = 21;
constexpr double plainBar = 4;
constexpr double barMargin = 2;
constexpr double knobMargin = 12; // of the track's length, where the knob's left edge may not go

/// A vertical slider is a horizontal one stood up: its minimum, left, comes below.
core::Rect standingUp(const core::Rect& rect, const core::Rect& bounds) {
    return {{bounds.origin.x + rect.origin.y, bounds.maxY() - rect.maxX()},
            {rect.size.height, rect.size.width}};
}

double directed(const SliderParts& parts, double place) {
    return parts.kind == SliderKind::horizontal && parts.isRightToLeft ? 1 - place : place;
}

core::Rect horizontalBar(const core::Rect& bounds, const std::optional<core::Size>& image) {
    const double height = image ? image->height : plainBar;
    return core::integral(
        {{bounds.origin.x + barMargin, std::trunc(core::midPoint(bounds).y - height * 0.5)},
         {bounds.size.width - 2 * barMargin, height}});
}

core::Rect horizontalKnob(const core::Rect& bounds, const SliderParts& parts, double place) {
    const core::Rect bar = horizontalBar(bounds, parts.barImage);
    const core::Size size = parts.knobImage.value_or(core::Size{plainKnob, plainKnob});
    const double middle =
        bounds.origin.x + size.width / 2 + place * std::max(0.0, bounds.size.width - size.width);
    const double limit = std::max(1.0, bar.size.width - knobMargin);
    const double x =
        bounds.origin.x +
        std::clamp(std::trunc(middle - bounds.origin.x - size.width * 0.5), 0.0, limit);
    return core::integral({{x, std::trunc(core::midPoint(bar).y - size.height * 0.5)}, size});
}

/// The circle that the middle of a circular slider's knob moves on.
struct Circle {
    core::Point centre;
    double radius = 0;
};

Circle knobCircle(const SliderParts& parts) {
    const double knob = knobThickness(parts);
    const core::Size room = parts.bounds.size;
    return {core::midPoint(parts.bounds),
            std::max(0.0, (std::min(room.width, room.height) - knob) / 2)};
}

core::Rect lain(const SliderParts& parts) {
    return {{0, 0}, {parts.bounds.size.height, parts.bounds.size.width}};
}

} // namespace

double SliderRange::clamped(double value) const {
    if (!(minimum <= maximum)) {
        core::fatal("A slider needs a range from a minimum to a maximum");
    }
    return std::clamp(value, minimum, maximum);
}

double SliderRange::placeOf(double value) const {
    return length() > 0 ? (clamped(value) - minimum) / length() : 0;
}

double SliderRange::valueAt(double place) const {
    return clamped(minimum + place * length());
}

double knobThickness(const SliderParts& parts) {
    return parts.knobImage ? parts.knobImage->width : plainKnob;
}

core::Rect barRect(const SliderParts& parts) {
    switch (parts.kind) {
    case SliderKind::vertical:
        return standingUp(horizontalBar(lain(parts), parts.barImage), parts.bounds);
    case SliderKind::circular: {
        const Circle circle = knobCircle(parts);
        return {{circle.centre.x - circle.radius, circle.centre.y - circle.radius},
                {2 * circle.radius, 2 * circle.radius}};
    }
    case SliderKind::horizontal:
        break;
    }
    return horizontalBar(parts.bounds, parts.barImage);
}

core::Rect knobRect(const SliderParts& parts, double place) {
    if (parts.kind == SliderKind::vertical) {
        return standingUp(horizontalKnob(lain(parts), parts, place), parts.bounds);
    }
    if (parts.kind == SliderKind::circular) {
        const Circle circle = knobCircle(parts);
        const core::Size size = parts.knobImage.value_or(core::Size{plainKnob, plainKnob});
        const double angle = place * 2 * std::numbers::pi; // from below, clockwise
        const core::Point middle{circle.centre.x - std::sin(angle) * circle.radius,
                                 circle.centre.y + std::cos(angle) * circle.radius};
        return {{middle.x - size.width / 2, middle.y - size.height / 2}, size};
    }
    return horizontalKnob(parts.bounds, parts, directed(parts, place));
}

core::Rect filledRect(const SliderParts& parts, double place) {
    const core::Rect bar = barRect(parts);
    const core::Point knob = core::midPoint(knobRect(parts, place));
    core::Rect filled = bar;
    switch (parts.kind) {
    case SliderKind::horizontal:
        if (parts.isRightToLeft) {
            filled.origin.x = knob.x;
            filled.size.width = bar.maxX() - knob.x;
        } else {
            filled.size.width = knob.x - bar.origin.x;
        }
        break;
    case SliderKind::vertical:
        filled.origin.y = knob.y;
        filled.size.height = bar.maxY() - knob.y;
        break;
    case SliderKind::circular:
        return bar;
    }
    return core::atLeastEmpty(core::integral(filled));
}

double placeAlong(const SliderParts& parts, const core::Point& point) {
    if (parts.kind == SliderKind::circular) {
        const core::Point centre = core::midPoint(parts.bounds);
        const double angle = std::atan2(centre.x - point.x, point.y - centre.y);
        const double turn = angle / (2 * std::numbers::pi);
        return turn < 0 ? turn + 1 : turn;
    }
    const bool isVertical = parts.kind == SliderKind::vertical;
    const double length = isVertical ? parts.bounds.size.height : parts.bounds.size.width;
    const double along =
        isVertical ? parts.bounds.maxY() - point.y : point.x - parts.bounds.origin.x;
    const double room = length - knobThickness(parts);
    return room > 0 ? directed(parts, (along - knobThickness(parts) / 2) / room) : 0;
}

double placeAt(const SliderParts& parts, const core::Point& point) {
    return std::clamp(placeAlong(parts, point), 0.0, 1.0);
}

double scrolledValue(SliderKind kind, const SliderRange& range, double value,
                     const SliderScroll& scroll) {
    double delta = scroll.delta.y;
    if (kind != SliderKind::vertical) {
        delta += scroll.isRightToLeft ? scroll.delta.x : -scroll.delta.x;
    }
    if (scroll.isInverted) {
        delta = -delta;
    }
    const double step = range.length() * delta / 100 * 0.25;
    const double next = value + step;
    if (kind == SliderKind::circular) {
        if (next < range.minimum) {
            return range.clamped(range.maximum - std::abs(step));
        }
        if (next > range.maximum) {
            return range.clamped(range.minimum + std::abs(step));
        }
    }
    return range.clamped(next);
}

} // namespace driftwood
