#include "driftwood/declarative/drift_slider_model.hpp"

#include "core/fatal.hpp"

#include <algorithm>
#include <cmath>

namespace driftwood {
namespace {

std::optional<double> commonValue(const std::vector<double>& values) {
    const bool agree = !values.empty() && std::ranges::all_of(values, [&](double value) {
        return value == values.front();
    });
    return agree ? std::optional(values.front()) : std::nullopt;
}

} // namespace

DriftSliderModel::DriftSliderModel(std::vector<double> values, double defaultOne, double minimum,
                                   double maximum, double increment,
                                   SliderIconClickBehaviour behaviour)
    : incrementBy(increment),
      minimumValue(minimum),
      maximumValue(maximum),
      startingValues(std::move(values)),
      defaultValue(defaultOne),
      iconClickBehaviour(behaviour),
      value(commonValue(startingValues)) {}

void DriftSliderModel::checkRange() const {
    if (!(minimumValue <= maximumValue)) {
        core::fatal("A slider's range needs a minimum that does not exceed its maximum");
    }
}

double DriftSliderModel::clamped(double of) const {
    checkRange();
    return std::clamp(of, minimumValue, maximumValue);
}

double DriftSliderModel::normalised(double of) const {
    checkRange();
    const double place = (of - minimumValue) / (maximumValue - minimumValue);
    return place > 0 ? std::min(place, 1.0) : 0; // not a number is not above 0, either
}

std::optional<double> DriftSliderModel::percent() const {
    return value.value() ? std::optional(normalised(*value.value())) : std::nullopt;
}

void DriftSliderModel::setPercent(std::optional<double> percent) {
    if (percent) {
        setValue(minimumValue + *percent * (maximumValue - minimumValue));
    } else {
        value.set(std::nullopt);
    }
}

void DriftSliderModel::setValue(double newValue) {
    if (const double kept = clamped(newValue); !std::isnan(kept)) {
        value.set(kept);
    }
}

void DriftSliderModel::leftIconClicked() {
    iconClicked(-1, minimumValue);
}

void DriftSliderModel::rightIconClicked() {
    iconClicked(1, maximumValue);
}

void DriftSliderModel::iconClicked(double direction, double end) {
    if (iconClickBehaviour == SliderIconClickBehaviour::increment) {
        step(direction);
    } else {
        value.set(end);
        complete();
    }
}

void DriftSliderModel::resetToDefaultValue() {
    value.set(defaultValue);
    complete();
}

void DriftSliderModel::step(double increments) {
    finish(value.value().value_or(defaultValue) + increments * incrementBy);
}

void DriftSliderModel::finish(double newValue) {
    if (std::isnan(newValue)) {
        return;
    }
    setValue(newValue);
    complete();
}

void DriftSliderModel::complete() {
    if (onSlideComplete) {
        // A copy: it may replace itself, and an observer of the value may have set another one.
        const Callback callback = onSlideComplete;
        callback(value.value().value_or(defaultValue));
    }
}

} // namespace driftwood
