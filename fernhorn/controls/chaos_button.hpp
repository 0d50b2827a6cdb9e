#pragma once

#include "fernhorn/controls/chaos_button_color.hpp"
#include "fernhorn/controls/press_button.hpp"

#include <functional>

namespace fernhorn {

/// A coloured key that calls back when it is clicked.
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

} // namespace fernhorn
