#pragma once

#include "core/geometry.hpp"

#include <optional>

namespace driftwood {

// Where a slider's parts lie, and which value a point stands for. Pure functions, any thread.
// Points are those of the control, y grows downwards; a place is 0 at the minimum and 1 at the
// maximum.

/// The kinds of sliders. The minimum of a vertical one is at its lower end, that of a circular one
/// at six o'clock, from where it turns clockwise.
enum class SliderKind { horizontal, vertical, circular };

/// The range of a slider. A maximum below the minimum, or a bound that is not a number, stops the
/// program where the range is used.
struct SliderRange {
    double minimum = 0;
    double maximum = 1;

    [[nodiscard]] double clamped(double value) const;
    [[nodiscard]] double length() const { return maximum - minimum; }
    /// 0 for a range without length.
    [[nodiscard]] double placeOf(double value) const;
    [[nodiscard]] double valueAt(double place) const;
};

/// What a slider is laid out from.
struct SliderParts {
    core::Rect bounds;                   ///< the control's
    std::optional<core::Size> barImage;  ///< of the state; nothing without one
    std::optional<core::Size> knobImage; ///< of the state; nothing without one
    SliderKind kind = SliderKind::horizontal;
    bool isRightToLeft = false; ///< a horizontal slider's minimum is at the right
};

/// The part along the axis that the knob takes up: the image's width, else 21 points.
[[nodiscard]] double knobThickness(const SliderParts& parts);

/// The track. Along the axis 2 points are left free at both ends; across, it is as thick as its
/// image and in the middle.
[[nodiscard]] core::Rect barRect(const SliderParts& parts);

/// The knob for a place, kept on the track and with its centre on it.
[[nodiscard]] core::Rect knobRect(const SliderParts& parts, double place);

/// The part of the track from the minimum's end to the middle of the knob.
[[nodiscard]] core::Rect filledRect(const SliderParts& parts, double place);

/// The place that the middle of the knob has when it is at a point, kept within 0 and 1.
[[nodiscard]] double placeAt(const SliderParts& parts, const core::Point& point);

/// The same, beyond the ends of a straight slider less than 0 and more than 1.
[[nodiscard]] double placeAlong(const SliderParts& parts, const core::Point& point);

/// What a scroll does to a slider's value.
struct SliderScroll {
    core::Point delta;       ///< in the unit of `platform::scrollingDelta`
    bool isInverted = false; ///< natural scrolling
    bool isRightToLeft = false;
};

/// The value after a scroll. A circular slider goes on at its other end, by the whole step from
/// there; others stop at their ends. 100 units of delta are a quarter of the range.
[[nodiscard]] double scrolledValue(SliderKind kind, const SliderRange& range, double value,
                                   const SliderScroll& scroll);

} // namespace driftwood
