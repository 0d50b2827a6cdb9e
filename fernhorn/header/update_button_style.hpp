#pragma once

#include "platform/ui/button.hpp"

namespace fernhorn {

/// A label on a small coloured plate, lit less while it is pressed. Its size is 13 points, in the
/// kit's own face unless a derived class takes another.
class UpdateButtonStyle : public platform::ButtonStyle {
  public:
    static constexpr double labelSize = 13; // points

    [[nodiscard]] QFont font() const override;
    [[nodiscard]] double height() const final;
    [[nodiscard]] QMarginsF labelPadding() const final { return {4, 2, 4, 0}; }
    void paint(QPainter& painter, const QRectF& body,
               const platform::ButtonConfiguration& configuration) const final;
};

} // namespace fernhorn
