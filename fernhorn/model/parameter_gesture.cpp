#include "fernhorn/model/parameter_gesture.hpp"

#include <utility>

namespace fernhorn {

ParameterGesture::ParameterGesture(std::shared_ptr<AudioParameter> parameter, GestureStyle style)
    : parameter_(std::move(parameter)), style_(style) {
    // Observers may end the gesture's owner; the parameter is held here.
    const auto edited = parameter_;
    if (style.marksParameter) {
        edited->setBeingInteractivelyEdited(true);
    }
    edited->setValue(style.openingValue.value_or(edited->valueWithPendingEdits()),
                     ParameterEditor::ui, ParameterEditorState::beginInteractive);
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
    if (style.marksParameter) {
        parameter->setBeingInteractivelyEdited(false);
    }
    if (style.closingValue) {
        parameter->setValue(*style.closingValue, ParameterEditor::ui, ParameterEditorState::change);
    }
    parameter->setValue(style.closingValue.value_or(parameter->valueWithPendingEdits()),
                        ParameterEditor::ui, ParameterEditorState::endInteractive);
}

} // namespace fernhorn
