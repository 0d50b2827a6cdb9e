#include "fernhorn/controls/button_press.hpp"

namespace fernhorn {

using platform::PressTracker;

PressStep ButtonPress::step(bool wasPressed, PressTracker::Result result) const {
    if (result == PressTracker::Result::clicked) {
        return PressStep::clicked;
    }
    if (wasPressed == isPressed()) {
        return PressStep::none;
    }
    return wasPressed ? PressStep::cancelled : PressStep::began;
}

PressStep ButtonPress::press(core::Point point, core::Size button) {
    const bool wasPressed = isPressed();
    const PressStep result = step(wasPressed, tracker_.press(point, {{}, button}));
    if (result == PressStep::began) {
        key_ = 0;
    }
    return result;
}

PressStep ButtonPress::moveMouse(bool isButtonDown) {
    return isPressed() && key_ == 0 && !isButtonDown ? cancel() : PressStep::none;
}

PressStep ButtonPress::release(core::Point point, core::Size button) {
    const bool wasPressed = isPressed();
    return step(wasPressed, tracker_.release(point, {{}, button}));
}

PressStep ButtonPress::pressKey(int key) {
    const bool wasPressed = isPressed();
    const PressStep result = step(wasPressed, tracker_.pressKey());
    if (result == PressStep::began) {
        key_ = key;
    }
    return result;
}

PressStep ButtonPress::releaseKey(int key) {
    const bool wasPressed = isPressed();
    return key == key_ ? step(wasPressed, tracker_.releaseKey()) : PressStep::none;
}

PressStep ButtonPress::cancel() {
    const bool wasPressed = isPressed();
    return step(wasPressed, tracker_.cancel());
}

} // namespace fernhorn
