#include "fernhorn/controls/chaos_toggle_button_narrow.hpp"

namespace fernhorn {

ChaosToggleButtonNarrow::ChaosToggleButtonNarrow(const std::shared_ptr<AudioParameter>& param,
                                                 const std::optional<QString>& buttonText,
                                                 QSizeF buttonSize, QWidget* parent)
    : ParameterButton(param,
                      {.edit = PressEdit::toggle(),
                       .isOn = [](float value) { return value == 1; },
                       .face = {ButtonImages::ofKit("chaos-button-narrow-grey-off",
                                                    "chaos-button-narrow-grey-on-yellow",
                                                    "chaos-button-narrow-grey-off-down",
                                                    "chaos-button-narrow-grey-on-yellow-down"),
                                ButtonCaption::onKey(buttonText.value_or(QString()))},
                       .buttonSize = buttonSize,
                       .spokenName = nameOf(param)},
                      parent),
      buttonText_(buttonText) {}

} // namespace fernhorn
