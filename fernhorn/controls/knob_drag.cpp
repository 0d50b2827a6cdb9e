#include "fernhorn/controls/knob_drag.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace fernhorn {
namespace {

/// A hand that clicks is not quite still.
constexpr double clickTravel = 3;

} // namespace

KnobDrag::KnobDrag(std::shared_ptr<AudioParameter> parameter, KnobFeel feel)
    : feel_(feel), edit_(std::move(parameter)) {}

void KnobDrag::press(core::Point at, int clickCount, bool isAltHeld) {
    if (!isPressed()) {
        press_ = Press{at, clickCount == 2 || isAltHeld};
        if (feel_.knobMinDrag <= 0) {
            move(at, false);
        }
    }
}

void KnobDrag::note(core::Point at) {
    press_->travel = std::max(press_->travel, std::hypot(at.x - press_->at.x, at.y - press_->at.y));
}

void KnobDrag::move(core::Point at, bool isFine) {
    if (!isPressed()) {
        return;
    }
    note(at);
    if (!isDragging()) {
        if (press_->travel >= feel_.knobMinDrag) {
            lastDragValue_ = at.y;
            [[maybe_unused]] const bool isOpen = edit_.begin(); // may destroy this
        }
        return;
    }
    const float way =
        static_cast<float>(*std::exchange(lastDragValue_, at.y) - at.y) * feel_.knobDragScaleFactor;
    edit_.moveBy(isFine ? way * fineShare : way);
}

void KnobDrag::release(core::Point at) {
    if (!isPressed()) {
        return;
    }
    note(at);
    const auto parameter = edit_.parameter();
    const auto press = *std::exchange(press_, std::nullopt);
    lastDragValue_.reset();
    const bool isReset = press.resets && press.travel < std::max(feel_.knobMinDrag, clickTravel);
    edit_.end(); // may destroy this
    if (isReset) {
        parameter->setValue(parameter->defaultValue(), ParameterEditor::ui,
                            ParameterEditorState::change);
    }
}

void KnobDrag::cancel() {
    press_.reset();
    lastDragValue_.reset();
    edit_.end();
}

} // namespace fernhorn
