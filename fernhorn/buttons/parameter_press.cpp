#include "fernhorn/buttons/parameter_press.hpp"

#include "core/fatal.hpp"

#include <utility>

namespace fernhorn {

std::optional<GestureStyle> PressEdit::gestureStyle() const {
    switch (kind_) {
    case Kind::select:
    case Kind::toggle:
        return GestureStyle::press();
    case Kind::hold:
        return GestureStyle::momentary(0);
    case Kind::selectAtOnce:
        break;
    }
    return std::nullopt;
}

std::optional<float> PressEdit::valueAtBegin() const {
    return kind_ == Kind::hold ? std::optional(1.0F) : std::nullopt;
}

std::optional<float> PressEdit::valueAtClick(float current) const {
    switch (kind_) {
    case Kind::select:
    case Kind::selectAtOnce:
        return value_;
    case Kind::toggle:
        return current == 0 ? 1.0F : 0.0F;
    case Kind::hold:
        break; // its gesture returns to 0 by itself
    }
    return std::nullopt;
}

ParameterPress::ParameterPress(std::shared_ptr<AudioParameter> parameter, PressEdit edit)
    : parameter_(std::move(parameter)), edit_(edit) {
    if (parameter_ == nullptr) {
        core::fatal("A button for a parameter has none");
    }
}

ParameterPress::~ParameterPress() {
    end(false);
}

void ParameterPress::follow(PressStep step) {
    switch (step) {
    case PressStep::none:
    case PressStep::crossed:
        return;
    case PressStep::began:
        begin();
        return;
    case PressStep::clicked:
    case PressStep::cancelled:
        end(step == PressStep::clicked);
        return;
    }
}

void ParameterPress::begin() {
    // Whoever is told of an edit below may end this press, begin another or destroy this object.
    const auto touch = touch_;
    const auto edit = edit_;
    const unsigned press = ++touch->presses;
    const auto style = edit.gestureStyle();
    if (!style) {
        return;
    }
    ParameterGesture gesture(parameter_, *style);
    if (const auto value = edit.valueAtBegin()) {
        gesture.change(*value);
    }
    if (touch->presses == press) {
        touch->gesture = std::move(gesture);
    } // else it is over already, and so is its gesture
}

void ParameterPress::end(bool isClick) {
    const auto parameter = parameter_;
    ++touch_->presses;
    const auto gesture = std::exchange(touch_->gesture, std::nullopt); // ends with this function
    // With the edits that are on their way: two quick clicks are two.
    const auto value = edit_.valueAtClick(parameter->valueWithPendingEdits());
    if (isClick && value) {
        parameter->setValue(*value, ParameterEditor::ui, ParameterEditorState::change);
    }
}

} // namespace fernhorn
