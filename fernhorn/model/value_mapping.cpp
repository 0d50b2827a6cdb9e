// Compiled without contraction, so that every product and sum is rounded on its own.
#include "fernhorn/model/value_mapping.hpp"

#include "core/decimal_text.hpp"
#include "core/fatal.hpp"

#include <algorithm>
#include <cmath>
#include <string>

namespace fernhorn {
namespace {

constexpr float minusLogOfTwo = -0.6931472F;

} // namespace

bool ValueMapping::hasTravel() const {
    return range.lower < range.upper && std::isfinite(range.lower) && std::isfinite(range.upper);
}

bool ValueMapping::isLogarithmic() const {
    return increment.isLogarithmic() && range.lower > 0 && range.upper > 0;
}

float ValueMapping::logarithmicPosition(float value) const {
    const float ratio = range.upper / range.lower;
    if (std::isfinite(ratio)) {
        return std::log(value / range.lower) / std::log(ratio);
    }
    // Bounds so far apart that their ratio is beyond the largest number; their logarithms are not.
    const float lowerLog = std::log(range.lower);
    return (std::log(value) - lowerLog) / (std::log(range.upper) - lowerLog);
}

std::optional<float> ValueMapping::midpointExponent(float midpoint) const {
    if (!(range.lower > 0 && range.upper > 0 && range.lower < midpoint && midpoint < range.upper)) {
        return std::nullopt;
    }
    const float position = logarithmicPosition(midpoint);
    if (!(position > 0 && position < 1)) {
        return std::nullopt;
    }
    return minusLogOfTwo / std::log(position);
}

std::optional<float> ValueMapping::exponent() const {
    return increment.midpoint() ? midpointExponent(*increment.midpoint()) : std::nullopt;
}

float ValueMapping::normalizedPosition(float value) const {
    if (!hasTravel()) {
        return 0;
    }
    if (isLogarithmic()) {
        const float base = logarithmicPosition(value);
        const auto bend = exponent();
        return bend ? std::pow(base, *bend) : base;
    }
    const float length = range.upper - range.lower;
    if (std::isfinite(length)) {
        return (value - range.lower) / length;
    }
    // The difference of the bounds is beyond the largest number; that of their halves is not.
    return (value / 2 - range.lower / 2) / (range.upper / 2 - range.lower / 2);
}

float ValueMapping::valueForNormalizedPosition(float position) const {
    if (!hasTravel() || position == 0) {
        return range.lower;
    }
    if (position == 1) {
        return range.upper;
    }
    float value = 0;
    if (isLogarithmic()) {
        const auto bend = exponent();
        const float bent = bend ? std::pow(position, 1 / *bend) : position;
        const float ratio = range.upper / range.lower;
        if (std::isfinite(ratio)) {
            value = range.lower * std::pow(ratio, bent);
        } else {
            const float lowerLog = std::log(range.lower);
            value = std::exp(lowerLog + bent * (std::log(range.upper) - lowerLog));
        }
    } else {
        const float length = range.upper - range.lower;
        value = std::isfinite(length)
                    ? range.lower + position * length
                    : (range.lower / 2 + position * (range.upper / 2 - range.lower / 2)) * 2;
    }
    // Rounding may carry a position just inside the ends to a value just outside.
    return position > 0 && position < 1 ? std::clamp(value, range.lower, range.upper) : value;
}

int ValueMapping::imageIndex(float value, int imageCount) const {
    if (imageCount < 1) {
        core::fatal("A film strip needs at least one frame");
    }
    const float position = normalizedPosition(value);
    const float frame = std::round(position * static_cast<float>(imageCount - 1) + 1);
    constexpr float limit = 9223372036854775808.0F; // 2^63
    if (!(frame >= -limit && frame < limit)) {
        core::fatal("No film strip frame for the value " + core::shortestText(value));
    }
    if (frame <= 1) {
        return 1;
    }
    return frame >= static_cast<float>(imageCount) ? imageCount : static_cast<int>(frame);
}

} // namespace fernhorn
