#pragma once

#include <cmath>
#include <numbers>

namespace driftwood {

/// Angles. Any thread.
struct DegreeUtil {
    [[nodiscard]] static constexpr double degreesToRadians(double degrees) {
        return degrees * std::numbers::pi / 180;
    }

    /// The same angle above -180 and up to 180 degrees; not a number for what is not finite.
    [[nodiscard]] static double normalise(double degrees) {
        const double remainder = std::fmod(degrees, 360);
        if (remainder > 180) {
            return remainder - 360;
        }
        return remainder <= -180 ? remainder + 360 : remainder;
    }
};

} // namespace driftwood
