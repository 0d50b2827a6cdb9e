#include "driftwood/util/tracking_value.hpp"

#include "core/fatal.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace driftwood {
namespace {

template<class Integer>
Integer truncated(double value) {
    // The bounds as they are in doubles: the upper one is the first that does not fit.
    constexpr double lowest = static_cast<double>(std::numeric_limits<Integer>::min());
    const double whole = std::trunc(value);
    if (!(whole >= lowest && whole < -lowest)) {
        core::fatal("A slider's value does not fit an integer");
    }
    return static_cast<Integer>(whole);
}

} // namespace

void TrackingValue::setDoubleValue(double value) {
    if (!(minimumValue <= maximumValue)) {
        core::fatal("A tracking slider needs a range from a minimum to a maximum");
    }
    if (std::isnan(value)) {
        return;
    }
    currentValue_ = std::clamp(value, minimumValue, maximumValue);
}

std::int32_t TrackingValue::intValue() const {
    return truncated<std::int32_t>(currentValue_);
}

std::int64_t TrackingValue::integerValue() const {
    return truncated<std::int64_t>(currentValue_);
}

bool TrackingValue::step(double amount) {
    if (!(amount > 0 || amount < 0)) {
        return false;
    }
    valueWasEdited = true;
    setDoubleValue(currentValue_ + (amount > 0 ? incrementBy : -incrementBy));
    return true;
}

bool TrackingValue::pan(double velocity) {
    return std::abs(velocity) > minimumPanVelocity && step(velocity);
}

} // namespace driftwood
