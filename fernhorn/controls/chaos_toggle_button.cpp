#include "fernhorn/controls/chaos_toggle_button.hpp"

namespace fernhorn {
namespace {

ButtonImages imagesOf(ChaosButtonColor color) {
    switch (color) {
    case ChaosButtonColor::yellow:
        break;
    }
    return ButtonImages::ofKit("chaos-button-grey-off", "chaos-button-grey-on-yellow",
                               "chaos-button-grey-off-down", "chaos-button-grey-on-yellow-down");
}

} // namespace

ChaosToggleButton::ChaosToggleButton(const std::shared_ptr<AudioParameter>& param, int valueIndex,
                                     ChaosButtonColor color, QSizeF buttonSize, QWidget* parent)
    : IndexButton(param, valueIndex,
                  {imagesOf(color), ButtonCaption::onKey(indexCaption(param, valueIndex))},
                  buttonSize, parent),
      color_(color) {}

} // namespace fernhorn
