#include "fernhorn/header/logo_button.hpp"

#include "platform/assets/asset_catalog.hpp"

#include <QPainter>

#include <utility>

namespace fernhorn {

LogoButton::LogoButton(const platform::ImageAsset* logo, std::function<void()> onPressed,
                       QWidget* parent)
    : PressButton({ButtonImages::plain(logo, logo)}, logo != nullptr ? logo->size() : QSizeF(),
                  parent),
      onPressed_(std::move(onPressed)) {
    setAccessibleName(tr("The maker's website"));
}

void LogoButton::pressDidStep(PressStep step) {
    if (step == PressStep::clicked) {
        const auto callback = onPressed_; // it may destroy the button
        callback();
    }
}

void LogoButton::paintContent(QPainter& painter, const ButtonState& state) {
    painter.setOpacity(state.isPressed ? 0.6 : 1);
    PressButton::paintContent(painter, state);
    painter.setOpacity(1);
}

} // namespace fernhorn
