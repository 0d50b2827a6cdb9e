#pragma once

namespace core {

/// Geometry in points (device-independent units) unless a member says otherwise; the origin is
/// at the top left and y grows downwards.
struct Point {
    double x = 0;
    double y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    double width = 0;
    double height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

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

} // namespace core
