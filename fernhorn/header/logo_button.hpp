#pragma once

#include "fernhorn/controls/press_button.hpp"

#include <functional>

namespace fernhorn {

/// The maker's logo, a plain button that leads to the website. Main thread.
class LogoButton final : public PressButton {
    Q_OBJECT

  public:
    LogoButton(const platform::ImageAsset* logo, std::function<void()> onPressed,
               QWidget* parent = nullptr);

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Link; }

  protected:
    void pressDidStep(PressStep step) override;
    void paintContent(QPainter& painter, const ButtonState& state) override;

  private:
    std::function<void()> onPressed_;
};

} // namespace fernhorn
