#include "fernhorn/controls/image_button.hpp"

#include <QGuiApplication>

#include <utility>

namespace fernhorn {

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
