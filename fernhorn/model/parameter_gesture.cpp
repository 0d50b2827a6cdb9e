#include "fernhorn/model/parameter_gesture.hpp"

#include <utility>

namespace fernhorn {

ParameterGesture::ParameterGesture(std::shared_ptr<AudioParameter> parameter, GestureStyle style)
    : parameter_(std::move(parameter)), style_(style) {
    // Observers may end the gesture's owner; the parameter is held here.
    const auto edited = parameter_;
    const bool isFirst = edited->gestures_++ == 0;
    if (style.marksParameter && edited->markingGestures_++ == 0) {
        edited->setBeingInteractivelyEdited(true);
    }
    if (isFirst || style.openingValue) {
        edited->setValue(
            style.openingValue.value_or(edited->valueWithPendingEdits()), ParameterEditor::ui,
            isFirst ? ParameterEditorState::beginInteractive : ParameterEditorState::change);
    }
}

ParameterGesture::ParameterGesture(ParameterGesture&& other) noexcept
    : parameter_(std::exchange(other.parameter_, nullptr)), style_(other.style_) {}

ParameterGesture& ParameterGesture::operator=(ParameterGesture&& other) noexcept {
    if (this != &other) {
        end();
        parameter_ = std::exchange(other.parameter_, nullptr);
        style_ = other.style_;
    }
    return *this;
}

void ParameterGesture::change(float value) {
    if (parameter_ != nullptr) {
        parameter_->setValue(value, ParameterEditor::ui, ParameterEditorState::change);
    }
}

void ParameterGesture::end() {
    // Taken first: an observer that is told below may destroy this gesture.
    const auto parameter = std::exchange(parameter_, nullptr);
    if (parameter == nullptr) {
        return;
    }
    const auto style = style_;
    if (style.marksParameter && --parameter->markingGestures_ == 0) {
        parameter->setBeingInteractivelyEdited(false);
    }
    if (style.closingValue) {
        parameter->setValue(*style.closingValue, ParameterEditor::ui, ParameterEditorState::change);
    }
    // Only now: a gesture that an observer has begun meanwhile goes on with this touch.
    if (--parameter->gestures_ == 0) {
        parameter->setValue(style.closingValue.value_or(parameter->valueWithPendingEdits()),
                            ParameterEditor::ui, ParameterEditorState::endInteractive);
    }
}

} // namespace fernhorn
