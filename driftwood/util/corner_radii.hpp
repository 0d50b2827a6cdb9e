#pragma once

namespace driftwood {

/// The radii of a rectangle's corners, in points; 0 is a square corner. A value, for any thread.
struct CornerRadii {
    double topLeft = 0;
    double topRight = 0;
    double bottomRight = 0;
    double bottomLeft = 0;
    friend bool operator==(const CornerRadii&, const CornerRadii&) = default;
};

} // namespace driftwood
