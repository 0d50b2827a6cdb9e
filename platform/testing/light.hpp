#pragma once

#include <algorithm>
#include <cmath>

namespace platform::testing {

/// What sRGB's codes from 0 to 1 stand for, in double precision.
inline double toLinear(double code) {
    return code <= 0.04045 ? code / 12.92 : std::pow((code + 0.055) / 1.055, 2.4);
}

/// The code of an amount of light; what is beyond the range is cut.
inline double toCode(double linear) {
    linear = std::clamp(linear, 0.0, 1.0);
    return linear <= 0.0031308 ? 12.92 * linear : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
}

} // namespace platform::testing
