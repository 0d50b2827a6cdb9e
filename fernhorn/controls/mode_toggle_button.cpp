#include "fernhorn/controls/mode_toggle_button.hpp"

namespace fernhorn {
namespace {

ButtonImages imagesOf(ToggleButtonStyle style) {
    if (style == ToggleButtonStyle::retro) {
        // On, it looks like a modern one; off, it does not give way under the pointer.
        return ButtonImages::ofKit("retro-button", "modern-button-on", "retro-button",
                                   "retro-button-down");
    }
    return ButtonImages::ofKit("modern-button", "modern-button-on", "modern-button-down",
                               "modern-button-on-down");
}

} // namespace

ModeToggleButton::ModeToggleButton(const std::shared_ptr<AudioParameter>& param, int valueIndex,
                                   ToggleButtonStyle buttonStyle, double buttonFontSize,
                                   const QColor& buttonTextColor, QSizeF buttonSize,
                                   QWidget* parent)
    : IndexButton(param, valueIndex,
                  {imagesOf(buttonStyle), ButtonCaption::onPanel(indexCaption(param, valueIndex),
                                                                 buttonFontSize, buttonTextColor)},
                  buttonSize, parent),
      buttonStyle_(buttonStyle),
      buttonFontSize_(buttonFontSize) {}

} // namespace fernhorn
