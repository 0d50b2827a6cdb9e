#include "core/geometry.hpp"

#include "core/fatal.hpp"

#include <algorithm>
#include <cmath>

namespace core {
namespace {

/// Half away from zero.
double roundedToPixels(double value, double scaleFactor) {
    return std::round(value * scaleFactor) / scaleFactor;
}

} // namespace

Rect multiply(const Rect& rect, double factor) {
    return {multiply(rect.origin, factor), multiply(rect.size, factor)};
}

Size multiply(const Size& size, double factor) {
    return {size.width * factor, size.height * factor};
}

Point multiply(const Point& point, double factor) {
    return {point.x * factor, point.y * factor};
}

Rect integral(const Rect& rect) {
    const Point origin{std::floor(rect.origin.x), std::floor(rect.origin.y)};
    return {origin, {std::ceil(rect.maxX()) - origin.x, std::ceil(rect.maxY()) - origin.y}};
}

Rect integral(const Rect& rect, double scaleFactor) {
    return scaleFactor > 0 ? integral(rect * scaleFactor) / scaleFactor : rect;
}

Rect center(const Rect& rect, const Rect& container, double scaleFactor) {
    const auto middle = [scaleFactor](double outer, double inner) {
        return roundedToPixels((outer - inner) * 0.5, scaleFactor);
    };
    return integral({{middle(container.size.width, rect.size.width),
                      middle(container.size.height, rect.size.height)},
                     rect.size},
                    scaleFactor);
}

Rect centerX(const Rect& rect, const Rect& container, double scaleFactor,
             std::optional<ClosedRange> xRange) {
    double x = roundedToPixels(midPoint(container).x - 0.5 * rect.size.width, scaleFactor);
    if (xRange) {
        if (!(xRange->lower <= xRange->upper)) {
            fatal("centerX needs a range from a lower to an upper bound");
        }
        x = std::clamp(x, xRange->lower, xRange->upper);
    }
    return integral({{x, rect.origin.y}, rect.size});
}

Rect centerY(const Rect& rect, const Rect& container, double scaleFactor) {
    const double y = roundedToPixels(midPoint(container).y - 0.5 * rect.size.height, scaleFactor);
    return integral({{rect.origin.x, y}, rect.size});
}

Rect fit(const Rect& rect, const Rect& container) {
    const double x = std::min(container.maxX(), rect.maxX()) - rect.size.width;
    const double y = std::min(container.maxY(), rect.maxY()) - rect.size.height;
    return {{std::max(container.origin.x, x), std::max(container.origin.y, y)}, rect.size};
}

Rect inset(const Rect& rect, const EdgeInsets& insets, bool flipped) {
    return integral(
        {{rect.origin.x + insets.left, rect.origin.y + (flipped ? insets.top : insets.bottom)},
         {rect.size.width - (insets.left + insets.right),
          rect.size.height - (insets.top + insets.bottom)}});
}

Rect outset(const Rect& rect, const EdgeInsets& insets, bool flipped) {
    return inset(rect, {-insets.top, -insets.left, -insets.bottom, -insets.right}, flipped);
}

Size inset(const Size& size, const EdgeInsets& insets) {
    return {size.width - insets.left - insets.right, size.height - insets.top - insets.bottom};
}

Rect atLeastEmpty(const Rect& rect) {
    return {rect.origin, componentwiseMax(rect.size, {})};
}

bool hasNonZeroDimensions(const Rect& rect) {
    return hasNonZeroDimensions(rect.size);
}

bool hasNonZeroDimensions(const Size& size) {
    return size.width != 0 && size.height != 0;
}

Point midPoint(const Rect& rect) {
    return {rect.origin.x + 0.5 * rect.size.width, rect.origin.y + 0.5 * rect.size.height};
}

Point maxPoint(const Rect& rect) {
    return {rect.maxX(), rect.maxY()};
}

Size componentwiseMax(const Size& a, const Size& b) {
    return {std::max(a.width, b.width), std::max(a.height, b.height)};
}

Size componentwiseMin(const Size& a, const Size& b) {
    return {std::min(a.width, b.width), std::min(a.height, b.height)};
}

Point componentwiseMax(const Point& a, const Point& b) {
    return {std::max(a.x, b.x), std::max(a.y, b.y)};
}

Point componentwiseMin(const Point& a, const Point& b) {
    return {std::min(a.x, b.x), std::min(a.y, b.y)};
}

} // namespace core
