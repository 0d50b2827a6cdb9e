#pragma once

#include <optional>

// Plain values and arithmetic on them, for any thread.
namespace fernhorn {

/// A closed range of values; `lower` must not be above `upper`, and neither may be NaN.
struct ValueRange {
    float lower = 0;
    float upper = 0;
    friend bool operator==(const ValueRange&, const ValueRange&) = default;
};

/// How values are spread over a control's travel.
class ValueIncrement {
  public:
    /// Equal steps of the value.
    static constexpr ValueIncrement linear() { return {}; }
    /// Equal ratios of the value; with a midpoint, bent so that the midpoint stands in the middle.
    /// Over a range that is not wholly above 0 it is linear; a midpoint that is not strictly
    /// within the range is ignored.
    static constexpr ValueIncrement logarithmic(std::optional<float> midpoint = {}) {
        ValueIncrement increment;
        increment.isLogarithmic_ = true;
        increment.midpoint_ = midpoint;
        return increment;
    }

    [[nodiscard]] constexpr bool isLogarithmic() const { return isLogarithmic_; }
    /// Absent for a linear increment.
    [[nodiscard]] constexpr std::optional<float> midpoint() const { return midpoint_; }

    friend bool operator==(const ValueIncrement&, const ValueIncrement&) = default;

  private:
    bool isLogarithmic_ = false;
    std::optional<float> midpoint_;
};

/// The mapping between values of a range and positions 0…1 of a control, in 32-bit arithmetic
/// throughout. The lower bound stands at exactly 0 and the upper one at exactly 1, and both
/// directions never turn back.
///
/// A range without travel (both bounds equal, or one of them infinite) has every value at
/// position 0 and the lower bound at every position. Otherwise values and positions beyond the
/// ends are continued by the same formulas, which give NaN for NaN and, where the mapping is
/// logarithmic, NaN or infinity for values of 0 and below.
struct ValueMapping {
    ValueRange range;
    ValueIncrement increment;

    /// Linear: (value - lower) / (upper - lower). Logarithmic: ln(value / lower) /
    /// ln(upper / lower), raised to the midpoint's exponent.
    [[nodiscard]] float normalizedPosition(float value) const;

    /// The inverse. Linear: lower + position * (upper - lower). Logarithmic:
    /// lower * (upper / lower)^position, after raising the position to 1 / exponent.
    [[nodiscard]] float valueForNormalizedPosition(float position) const;

    /// The exponent that brings `midpoint` to position 0.5: -ln 2 / ln(x), x being its position
    /// without one. Absent unless the range is above 0 and the midpoint strictly within.
    [[nodiscard]] std::optional<float> midpointExponent(float midpoint) const;

    /// The frame of a film strip, from 1 to `imageCount`, that shows a value: the position times
    /// (imageCount - 1) plus 1, exact halves rounded away from zero. Stops the program when there
    /// is no frame, or when the position is infinite or NaN.
    [[nodiscard]] int imageIndex(float value, int imageCount) const;

  private:
    [[nodiscard]] bool hasTravel() const;
    [[nodiscard]] bool isLogarithmic() const;
    [[nodiscard]] float logarithmicPosition(float value) const;
    [[nodiscard]] std::optional<float> exponent() const;
};

} // namespace fernhorn
