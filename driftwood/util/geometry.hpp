#pragma once

#include "core/geometry.hpp"

#include <concepts>
#include <optional>

/// Pure functions on rectangles, sizes and points. A scale is the number of device pixels in a
/// point. "To whole edges" means the smallest rectangle with whole edges that contains the given
/// one. Any thread.
namespace driftwood {

[[nodiscard]] core::Rect multiply(const core::Rect& rect, double factor); ///< origin and size
[[nodiscard]] core::Size multiply(const core::Size& size, double factor);
[[nodiscard]] core::Point multiply(const core::Point& point, double factor);

/// What can be multiplied by a factor, and so divided by one.
template<class T>
concept Multiplicable = requires(const T& value, double factor) {
    { multiply(value, factor) } -> std::same_as<T>;
};

template<Multiplicable T>
[[nodiscard]] T operator*(const T& value, double factor) {
    return multiply(value, factor);
}
template<Multiplicable T>
[[nodiscard]] T operator/(const T& value, double factor) {
    return multiply(value, 1 / factor);
}

/// To whole edges, in points; a negative width or height is turned round first.
[[nodiscard]] core::Rect integral(const core::Rect& rect);

/// To whole edges, in device pixels. The rectangle as it is when the scale is not positive.
[[nodiscard]] core::Rect integral(const core::Rect& rect, double scaleFactor);

/// A rectangle of the receiver's size in the middle of the container, in the coordinates *inside*
/// the container, on device pixels. A scale of 0 gives an origin that is not a number.
[[nodiscard]] core::Rect center(const core::Rect& rect, const core::Rect& container,
                                double scaleFactor);

struct ClosedRange {
    double lower = 0;
    double upper = 0;
};

/// The rectangle moved to the middle of the container along one axis, in the coordinates the
/// container itself is in; the middle is rounded to device pixels, the result to whole edges in
/// points. A range limits x. A range that is empty or has a bound that is not a number stops the
/// program.
[[nodiscard]] core::Rect centerX(const core::Rect& rect, const core::Rect& container,
                                 double scaleFactor, std::optional<ClosedRange> xRange = {});
[[nodiscard]] core::Rect centerY(const core::Rect& rect, const core::Rect& container,
                                 double scaleFactor);

/// The rectangle moved into the container as far as needed; one that is too large starts where the
/// container starts.
[[nodiscard]] core::Rect fit(const core::Rect& rect, const core::Rect& container);

/// Without and with the insets around it, to whole edges. In flipped coordinates y grows downwards,
/// and moves by the top inset; otherwise by the bottom one.
[[nodiscard]] core::Rect inset(const core::Rect& rect, const core::EdgeInsets& insets,
                               bool flipped);
[[nodiscard]] core::Rect outset(const core::Rect& rect, const core::EdgeInsets& insets,
                                bool flipped);
[[nodiscard]] core::Size inset(const core::Size& size, const core::EdgeInsets& insets);

[[nodiscard]] bool hasNonZeroDimensions(const core::Rect& rect);
[[nodiscard]] bool hasNonZeroDimensions(const core::Size& size);
[[nodiscard]] core::Point midPoint(const core::Rect& rect);
[[nodiscard]] core::Point maxPoint(const core::Rect& rect);

[[nodiscard]] core::Size componentwiseMax(const core::Size& a, const core::Size& b);
[[nodiscard]] core::Size componentwiseMin(const core::Size& a, const core::Size& b);
[[nodiscard]] core::Point componentwiseMax(const core::Point& a, const core::Point& b);
[[nodiscard]] core::Point componentwiseMin(const core::Point& a, const core::Point& b);

} // namespace driftwood
