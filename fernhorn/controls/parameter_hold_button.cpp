#include "fernhorn/controls/parameter_hold_button.hpp"

#include "platform/assets/asset_catalog.hpp"

namespace fernhorn {

ParameterHoldButton::ParameterHoldButton(const std::shared_ptr<AudioParameter>& param,
                                         const platform::ImageAsset* image,
                                         const platform::ImageAsset* pressedImage, QWidget* parent)
    : ParameterButton(param,
                      {.edit = PressEdit::hold(),
                       .isOn = {},
                       .face = {ButtonImages::plain(image, pressedImage)},
                       .buttonSize = image != nullptr ? image->size() : QSizeF(),
                       .spokenName = nameOf(param)},
                      parent) {}

} // namespace fernhorn
