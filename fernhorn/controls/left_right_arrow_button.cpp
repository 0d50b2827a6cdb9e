#include "fernhorn/controls/left_right_arrow_button.hpp"

namespace fernhorn {

LeftRightArrowButton::LeftRightArrowButton(const std::shared_ptr<AudioParameter>& param,
                                           float leftValue, QSizeF buttonSize, QWidget* parent)
    : ParameterButton(param,
                      {.edit = PressEdit::toggle(),
                       .isOn = [leftValue](float value) { return value == leftValue; },
                       .face = {ButtonImages::ofKit("chaos-button-small-yellow-right",
                                                    "chaos-button-small-yellow-left",
                                                    "chaos-button-small-yellow-right-down",
                                                    "chaos-button-small-yellow-left-down")},
                       .buttonSize = buttonSize,
                       .spokenName = nameOf(param)},
                      parent),
      leftValue_(leftValue) {}

QString LeftRightArrowButton::spokenDescription() const {
    if (isOn()) {
        //: Which way an arrow button points
        return tr("Left");
    }
    //: Which way an arrow button points
    return tr("Right");
}

} // namespace fernhorn
