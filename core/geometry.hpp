#pragma once

#include <optional>
#include <type_traits>
#include <utility>

namespace core {

/// Geometry in points (device-independent units) unless a member says otherwise; the origin is
/// at the top left and y grows downwards.
struct Point {
    double x = 0;
    double y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

/// A width and a height, in points; negative where insets ate more than there was.
struct Size {
    double width = 0;
    double height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

/// A place and a size; its far edges are `maxX` and `maxY`.
struct Rect {
    Point origin;
    Size size;
    [[nodiscard]] double maxX() const { return origin.x + size.width; }
    [[nodiscard]] double maxY() const { return origin.y + size.height; }
    friend bool operator==(const Rect&, const Rect&) = default;
};

/// Distances from the edges of a rectangle towards its middle; negative ones reach outwards.
struct EdgeInsets {
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;
    friend bool operator==(const EdgeInsets&, const EdgeInsets&) = default;
};

// Arithmetic: pure functions, any thread. A scale is the number of device pixels in a point. "To
// whole edges" means the smallest rectangle with whole edges that contains the given one.

[[nodiscard]] Rect multiply(const Rect& rect, double factor); ///< origin and size
[[nodiscard]] Size multiply(const Size& size, double factor);
[[nodiscard]] Point multiply(const Point& point, double factor);

/// What can be multiplied by a factor, and so divided by one.
template<class T>
concept Multiplicable = std::is_same_v<decltype(multiply(std::declval<T>(), 1.0)), T>;

template<Multiplicable T>
[[nodiscard]] T operator*(const T& value, double factor) {
    return multiply(value, factor);
}
template<Multiplicable T>
[[nodiscard]] T operator/(const T& value, double factor) {
    return multiply(value, 1 / factor);
}

/// To whole edges, in points: the smallest rectangle with whole edges around the given one. Nothing
/// is turned round: a negative size stays negative.
[[nodiscard]] Rect integral(const Rect& rect);

/// To whole edges, in device pixels. The rectangle as it is when the scale is not positive.
[[nodiscard]] Rect integral(const Rect& rect, double scaleFactor);

/// A rectangle of the receiver's size in the middle of the container, in the coordinates *inside*
/// the container, on device pixels. A scale of 0 gives an origin that is not a number.
[[nodiscard]] Rect center(const Rect& rect, const Rect& container, double scaleFactor);

/// The values from `lower` to `upper`, both included.
struct ClosedRange {
    double lower = 0;
    double upper = 0;
};

/// The rectangle moved to the middle of the container along one axis, in the coordinates the
/// container itself is in; the middle is rounded to device pixels, the result to whole edges in
/// points. A range limits x. A range that is empty or has a bound that is not a number stops the
/// program.
[[nodiscard]] Rect centerX(const Rect& rect, const Rect& container, double scaleFactor,
                           std::optional<ClosedRange> xRange = {});
[[nodiscard]] Rect centerY(const Rect& rect, const Rect& container, double scaleFactor);

/// The rectangle moved into the container as far as needed; one that is too large starts where the
/// container starts.
[[nodiscard]] Rect fit(const Rect& rect, const Rect& container);

/// Without and with the insets around it, to whole edges. In flipped coordinates y moves by the top
/// inset, otherwise by the bottom one: what cells show is laid out against the latter.
[[nodiscard]] Rect inset(const Rect& rect, const EdgeInsets& insets, bool flipped);
[[nodiscard]] Rect outset(const Rect& rect, const EdgeInsets& insets, bool flipped);
[[nodiscard]] Size inset(const Size& size, const EdgeInsets& insets);

/// The rectangle, or an empty one at its origin where insets left a negative size.
[[nodiscard]] Rect atLeastEmpty(const Rect& rect);

[[nodiscard]] bool hasNonZeroDimensions(const Rect& rect);
[[nodiscard]] bool hasNonZeroDimensions(const Size& size);
[[nodiscard]] Point midPoint(const Rect& rect);
[[nodiscard]] Point maxPoint(const Rect& rect);

[[nodiscard]] Size componentwiseMax(const Size& a, const Size& b);
[[nodiscard]] Size componentwiseMin(const Size& a, const Size& b);
[[nodiscard]] Point componentwiseMax(const Point& a, const Point& b);
[[nodiscard]] Point componentwiseMin(const Point& a, const Point& b);

} // namespace core
