#pragma once

#include "fernhorn/fonts/fern_font.hpp"
#include "platform/ui/button.hpp"

#include <QColor>

namespace fernhorn {

/// A row of a panel that can be switched on, 27 points high.
class ModernButtonStyle final : public platform::ButtonStyle {
  public:
    /// `color` is the label's while it is off.
    ModernButtonStyle(bool isOn, const QColor& color) : isOn_(isOn), color_(color) {}

    [[nodiscard]] bool isOn() const { return isOn_; }
    [[nodiscard]] QColor color() const { return color_; }

    [[nodiscard]] QFont font() const override;
    [[nodiscard]] double height() const override { return 27; }
    [[nodiscard]] QMarginsF labelPadding() const override { return {12, 0, 12, 0}; }
    void paint(QPainter& painter, const QRectF& body,
               const platform::ButtonConfiguration& configuration) const override;

  private:
    bool isOn_;
    QColor color_;
};

/// A wide, quiet button that leads to settings, as high as its artwork.
class SettingsButtonStyle final : public platform::ButtonStyle {
  public:
    explicit SettingsButtonStyle(FernFont font) : font_(font) {}

    [[nodiscard]] FernFont fernFont() const { return font_; }

    [[nodiscard]] QFont font() const override;
    [[nodiscard]] double height() const override;
    [[nodiscard]] QMarginsF labelPadding() const override { return {14, 0, 14, 0}; }
    void paint(QPainter& painter, const QRectF& body,
               const platform::ButtonConfiguration& configuration) const override;

  private:
    FernFont font_;
};

} // namespace fernhorn
