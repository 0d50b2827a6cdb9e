#pragma once

#include "fernhorn/buttons/press_button.hpp"

#include <functional>

namespace fernhorn {

/// A coloured key that calls back when it is clicked. Main thread.
class ChaosButton final : public PressButton {
    Q_OBJECT

  public:
    /// `buttonText` is shown as it is written. `onPressed` may be empty, and may destroy the
    /// button.
    ChaosButton(ChaosButtonColor color, const QString& buttonText, std::function<void()> onPressed,
                QSizeF buttonSize, QWidget* parent = nullptr);

    [[nodiscard]] ChaosButtonColor color() const { return color_; }
    [[nodiscard]] const QString& buttonText() const { return face().caption.text; }

  protected:
    void pressDidStep(PressStep step) override;

  private:
    ChaosButtonColor color_;
    std::function<void()> onPressed_;
};

/// Whether the user holds the option key (Alt) now. Main thread.
[[nodiscard]] bool isOptionKeyHeld();

/// A button with two images that calls back when it is clicked. Give it a name for screen readers:
/// `setAccessibleName`, or the tool tip. Main thread.
class ImageButton final : public PressButton {
    Q_OBJECT

  public:
    /// `onPressed` may be empty; it is told whether the option key is held at the end of the click,
    /// and may destroy the button. The images outlive the button.
    ImageButton(const platform::ImageAsset* image, const platform::ImageAsset* downImage,
                std::function<void(bool isOptionHeld)> onPressed, QSizeF buttonSize,
                QWidget* parent = nullptr, std::function<bool()> optionKey = isOptionKeyHeld);

    [[nodiscard]] const platform::ImageAsset* image() const { return face().images.off; }
    [[nodiscard]] const platform::ImageAsset* downImage() const { return face().images.offDown; }

  protected:
    void pressDidStep(PressStep step) override;
    [[nodiscard]] bool takesOptionKey() const override { return true; }

  private:
    std::function<void(bool)> onPressed_;
    std::function<bool()> optionKey_;
};

} // namespace fernhorn
