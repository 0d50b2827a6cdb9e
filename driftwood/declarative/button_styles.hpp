#pragma once

#include "platform/controls/button.hpp"

// All of this is for the main thread.
namespace driftwood {

/// What both styles share: a label over one of the kit's two bezels, chosen by whether the button
/// is pressed, a little lighter under the pointer. 24 points high; the bezel reaches two points
/// beyond its place at either side.
class BezelButtonStyle : public platform::ButtonStyle {
  public:
    [[nodiscard]] double height() const final { return 24; }
    [[nodiscard]] QMarginsF padding() const final { return {-2, 0, -2, 0}; }
    void paint(QPainter& painter, const QRectF& body,
               const platform::ButtonConfiguration& configuration) const final;

  protected:
    /// How much of the label's colour a disabled button keeps.
    [[nodiscard]] virtual float disabledOpacity() const = 0;
};

/// The general push button of the kit: system font of size 11. Disabled, its label is drawn at half
/// opacity; the bezel stays the same.
class DefaultKestrelButtonStyle final : public BezelButtonStyle {
  public:
    [[nodiscard]] QFont font() const override;

  protected:
    [[nodiscard]] float disabledOpacity() const override { return 0.5F; }
};

/// The maker's own buttons: rounded system font of size 12, bold.
class FennickButtonStyle final : public BezelButtonStyle {
  public:
    [[nodiscard]] QFont font() const override;

  protected:
    [[nodiscard]] float disabledOpacity() const override { return 1.0F; }
};

} // namespace driftwood
