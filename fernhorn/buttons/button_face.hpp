#pragma once

#include "fernhorn/fonts/fern_font.hpp"
#include "platform/controls/button.hpp"
#include "platform/controls/cell_painting.hpp"
#include "platform/controls/line_text.hpp"

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>

#include <cstdint>

namespace platform {
class ImageAsset;
}

namespace fernhorn {

// Values; what reads the kit's bundle or paints is for the main thread.

/// The colours of the buttons with a lamp.
enum class ChaosButtonColor : std::uint8_t { yellow };

/// What the look of a button depends on.
struct ButtonState {
    bool isOn = false;
    bool isPressed = false;
    bool isEnabled = true;
};

/// The images of a button's states. They outlive the button; null shows nothing.
struct ButtonImages {
    const platform::ImageAsset* off = nullptr;
    const platform::ImageAsset* on = nullptr;
    const platform::ImageAsset* offDown = nullptr;
    const platform::ImageAsset* onDown = nullptr;

    /// For buttons that show no state of their own.
    static ButtonImages plain(const platform::ImageAsset* atRest,
                              const platform::ImageAsset* pressed) {
        return {atRest, atRest, pressed, pressed};
    }
    /// Images of the kit's own bundle, by name.
    static ButtonImages ofKit(const char* off, const char* on, const char* offDown,
                              const char* onDown);

    [[nodiscard]] const platform::ImageAsset* image(const ButtonState& state) const;
};

/// How far above the middle of a button its caption stands, in points: it goes down with the key.
struct CaptionLift {
    double off = 0;
    double on = 0;
    double offDown = 0;
    double onDown = 0;

    [[nodiscard]] double of(const ButtonState& state) const;
};

/// The text on a button.
struct ButtonCaption {
    QString text = {};
    QFont font = {};
    QColor color = {};
    QColor pressedColor = {};
    CaptionLift lift = {};

    /// On the keys of the kit: 13 points, in two of its colours.
    static ButtonCaption onKey(const QString& text);
    /// On a flat button, in one colour.
    static ButtonCaption onPanel(const QString& text, double fontSize, const QColor& color);
};

/// All that is seen of a button, in all of its states. A value.
struct ButtonFace {
    ButtonImages images;
    ButtonCaption caption = {};
};

/// A colour of the kit's bundle by name.
[[nodiscard]] QColor kitColor(const char* name);

/// How far a line of text has to be raised for its capitals, not its whole height, to stand in the
/// middle; in points.
[[nodiscard]] double capitalsLift(const QFont& font);

/// Paints the image of the state over all of `bounds`, and the caption on it; a disabled button is
/// half as opaque. A caption that is too long is cut at its end. `layout` keeps the caption laid
/// out between two paintings.
void paintButtonFace(QPainter& painter, const QRectF& bounds, const ButtonFace& face,
                     const ButtonState& state, platform::LineText& layout);

// Looks for the platform's own button.

/// A row of a panel that can be switched on, 27 points high. Main thread.
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

/// A wide, quiet button that leads to settings, as high as its artwork. Main
/// thread.
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
