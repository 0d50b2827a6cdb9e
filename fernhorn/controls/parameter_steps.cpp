#include "fernhorn/controls/parameter_steps.hpp"

#include "fernhorn/controls/continuous_edit.hpp"

#include <algorithm>
#include <cmath>

namespace fernhorn {
namespace {

constexpr float smallStep = 0.02F;
constexpr float page = 0.1F;

} // namespace

float stepTravel(const AudioParameter& parameter) {
    const ValueRange range = parameter.valueRange();
    return parameter.isIndexed() && range.lower < range.upper
               ? std::min(1 / (range.upper - range.lower), 1.0F)
               : smallStep;
}

float stepSize(const AudioParameter& parameter) {
    const float step = stepTravel(parameter);
    const float from =
        std::clamp(parameter.normalizedPosition(parameter.valueWithPendingEdits()), 0.0F, 1 - step);
    return parameter.valueForNormalizedPosition(from + step) -
           parameter.valueForNormalizedPosition(from);
}

void stepParameter(const std::shared_ptr<AudioParameter>& parameter, ParameterStep step,
                   bool isFine) {
    const float one = stepTravel(*parameter);
    const float whole = std::max(page, one);
    const float share = isFine && !parameter->isIndexed() ? fineShare : 1;
    const ValueRange range = parameter->valueRange();
    ContinuousEdit edit(parameter);
    if (!edit.begin()) {
        return;
    }
    switch (step) {
    case ParameterStep::up:
        edit.moveBy(one * share);
        break;
    case ParameterStep::down:
        edit.moveBy(-one * share);
        break;
    case ParameterStep::pageUp:
        edit.moveBy(whole * share);
        break;
    case ParameterStep::pageDown:
        edit.moveBy(-whole * share);
        break;
    case ParameterStep::toLowest:
        edit.changeTo(range.lower);
        break;
    case ParameterStep::toHighest:
        edit.changeTo(range.upper);
        break;
    case ParameterStep::toDefault:
        edit.changeTo(parameter->defaultValue());
        break;
    }
    edit.end();
}

void editParameter(const std::shared_ptr<AudioParameter>& parameter, float value) {
    ContinuousEdit edit(parameter);
    if (edit.begin()) {
        edit.changeTo(value);
        edit.end();
    }
}

} // namespace fernhorn
