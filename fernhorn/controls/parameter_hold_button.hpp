#pragma once

#include "fernhorn/controls/parameter_button.hpp"

namespace fernhorn {

/// A button whose parameter is 1 while it is held, and 0 afterwards, also when it was 1 before.
class ParameterHoldButton final : public ParameterButton {
    Q_OBJECT

  public:
    /// As large as `image`. The images outlive the button.
    ParameterHoldButton(const std::shared_ptr<AudioParameter>& param,
                        const platform::ImageAsset* image, const platform::ImageAsset* pressedImage,
                        QWidget* parent = nullptr);

    [[nodiscard]] const platform::ImageAsset* image() const { return face().images.off; }
    [[nodiscard]] const platform::ImageAsset* pressedImage() const { return face().images.offDown; }
    [[nodiscard]] bool isGestureActive() const { return isPressed(); }
};

} // namespace fernhorn
