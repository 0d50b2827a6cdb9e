#include "fernhorn/controls/continuous_edit.hpp"

#include <cmath>
#include <utility>

namespace fernhorn {
namespace {

/// NaN becomes the lower bound.
float clamped(float value, ValueRange range) {
    const float fromBelow = value >= range.lower ? value : range.lower;
    return fromBelow <= range.upper ? fromBelow : range.upper;
}

} // namespace

ContinuousEdit::ContinuousEdit(std::shared_ptr<AudioParameter> parameter)
    : parameter_(std::move(parameter)) {}

bool ContinuousEdit::begin() {
    if (isOpen()) {
        return true;
    }
    if (opening_ != nullptr) {
        return false;
    }
    const auto opening = std::make_shared<const bool>(true);
    opening_ = opening;
    ParameterGesture gesture(parameter_);
    if (opening.use_count() == 1) { // ended or destroyed: the gesture sends its release here
        return false;
    }
    opening_ = nullptr;
    continuousValue_ = parameter_->valueWithPendingEdits();
    gesture_.emplace(std::move(gesture));
    return true;
}

void ContinuousEdit::moveBy(float travel) {
    if (isOpen()) {
        const float position = parameter_->normalizedPosition(*continuousValue_) + travel;
        changeTo(parameter_->valueForNormalizedPosition(clamped(position, {0, 1})));
    }
}

void ContinuousEdit::changeTo(float value) {
    if (!isOpen()) {
        return;
    }
    const auto parameter = parameter_; // keeps it, whatever its observers destroy
    const float candidate = clamped(value, parameter->valueRange());
    continuousValue_ = candidate;
    gesture_->change(parameter->isIndexed() ? std::round(candidate) : candidate);
}

void ContinuousEdit::end() {
    opening_ = nullptr;
    continuousValue_.reset();
    // Taken first: an observer that is told may destroy this.
    if (auto gesture = std::exchange(gesture_, std::nullopt)) {
        gesture->end();
    }
}

} // namespace fernhorn
