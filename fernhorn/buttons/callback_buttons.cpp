#include "fernhorn/buttons/callback_buttons.hpp"

#include <QGuiApplication>

#include <utility>

namespace fernhorn {
namespace {

ButtonFace faceOf(ChaosButtonColor color, const QString& text) {
    ButtonFace face;
    face.caption = ButtonCaption::onKey(text);
    switch (color) {
    case ChaosButtonColor::yellow:
        face.images = ButtonImages::ofKit("chaos-button-yellow", "chaos-button-yellow",
                                          "chaos-button-yellow-down", "chaos-button-yellow-down");
        face.caption.color = face.caption.pressedColor = kitColor("ChaosYellowText");
        face.caption.lift = {.off = 2, .on = 2, .offDown = -2, .onDown = -2};
        break;
    }
    return face;
}

} // namespace

ChaosButton::ChaosButton(ChaosButtonColor color, const QString& buttonText,
                         std::function<void()> onPressed, QSizeF buttonSize, QWidget* parent)
    : PressButton(faceOf(color, buttonText), buttonSize, parent),
      color_(color),
      onPressed_(std::move(onPressed)) {
    setAccessibleName(buttonText);
}

void ChaosButton::pressDidStep(PressStep step) {
    if (step == PressStep::clicked && onPressed_) {
        const auto callback = onPressed_; // it may destroy the button
        callback();
    }
}

bool isOptionKeyHeld() {
    return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::AltModifier);
}

ImageButton::ImageButton(const platform::ImageAsset* image, const platform::ImageAsset* downImage,
                         std::function<void(bool)> onPressed, QSizeF buttonSize, QWidget* parent,
                         std::function<bool()> optionKey)
    : PressButton({ButtonImages::plain(image, downImage)}, buttonSize, parent),
      onPressed_(std::move(onPressed)),
      optionKey_(std::move(optionKey)) {}

void ImageButton::pressDidStep(PressStep step) {
    if (step == PressStep::clicked && onPressed_) {
        const auto callback = onPressed_; // it may destroy the button
        callback(optionKey_());
    }
}

} // namespace fernhorn
