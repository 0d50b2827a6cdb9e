#pragma once

#include "core/geometry.hpp"

#include <cmath>
#include <numbers>

namespace driftwood {

/// How a view shakes: sideways, and back to where it was. A value; any thread.
struct ShakeEffect {
    double amount = 0;         ///< how far it swings to either side, in points
    double shakes = 0;         ///< the number of swings; a whole number ends at rest
    double animatableData = 0; ///< the progress, from 0 to 1

    /// Where the view is drawn just now, as seen from its place.
    [[nodiscard]] core::Point translation() const {
        return {amount * std::sin(shakes * animatableData * std::numbers::pi), 0};
    }
};

} // namespace driftwood
