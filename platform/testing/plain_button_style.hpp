#pragma once

#include "platform/controls/button.hpp"

#include <QPainter>

namespace platform::testing {

/// A look that tells a button's state by colour: pressed is red, at rest green, disabled is dark.
class PlainButtonStyle final : public ButtonStyle {
  public:
    [[nodiscard]] QFont font() const override { return {}; }
    [[nodiscard]] double height() const override { return 24; }
    void paint(QPainter& painter, const QRectF& body,
               const ButtonConfiguration& configuration) const override {
        const int value = configuration.isEnabled ? 255 : 100;
        painter.fillRect(body, configuration.isPressed ? QColor(value, 0, 0) : QColor(0, value, 0));
    }
};

} // namespace platform::testing
