#include "fernhorn/controls/toggle_button.hpp"

namespace fernhorn {

ToggleButton::ToggleButton(const std::shared_ptr<AudioParameter>& param,
                           const std::optional<QString>& nameOverride, double buttonFontSize,
                           const QColor& buttonTextColor, QSizeF buttonSize, QWidget* parent)
    : ParameterButton(
          param,
          {.edit = PressEdit::toggle(),
           .isOn = [](float value) { return value == 1; },
           .face = {ButtonImages::ofKit("modern-button", "modern-button-on", "modern-button-down",
                                        "modern-button-on-down"),
                    ButtonCaption::onPanel(nameOverride.value_or(nameOf(param).toUpper()),
                                           buttonFontSize, buttonTextColor)},
           .buttonSize = buttonSize,
           .spokenName = nameOverride.value_or(nameOf(param))},
          parent),
      nameOverride_(nameOverride),
      buttonFontSize_(buttonFontSize) {}

} // namespace fernhorn
