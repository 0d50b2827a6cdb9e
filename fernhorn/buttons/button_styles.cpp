#include "fernhorn/buttons/button_face.hpp"

#include "platform/assets/asset_catalog.hpp"
#include "platform/controls/line_text.hpp"

#include <QPainter>

namespace fernhorn {
namespace {

constexpr double labelSize = 13; // points

ButtonImages modernImages() {
    return ButtonImages::ofKit("modern-button", "modern-button-on", "modern-button-down",
                               "modern-button-on-down");
}

ButtonImages settingsImages() {
    return ButtonImages::ofKit("settings-button", "settings-button", "settings-button-down",
                               "settings-button-down");
}

void paintLabelled(QPainter& painter, const QRectF& body, const ButtonImages& images,
                   const QFont& font, const QColor& ink,
                   const platform::ButtonConfiguration& configuration, bool isOn) {
    platform::LineText layout;
    paintButtonFace(painter, body,
                    {images,
                     {.text = configuration.label,
                      .font = font,
                      .color = ink,
                      .pressedColor = ink,
                      .lift = {.off = 0.5, .on = 2, .offDown = -0.5, .onDown = 1}}},
                    {isOn, configuration.isPressed, configuration.isEnabled}, layout);
}

} // namespace

QFont ModernButtonStyle::font() const {
    return CustomFontModifier{FernFont::dosisMedium, labelSize}.resolved();
}

void ModernButtonStyle::paint(QPainter& painter, const QRectF& body,
                              const platform::ButtonConfiguration& configuration) const {
    paintLabelled(painter, body, modernImages(), font(), isOn_ ? kitColor("buttonText") : color_,
                  configuration, isOn_);
}

QFont SettingsButtonStyle::font() const {
    return CustomFontModifier{font_, labelSize}.resolved();
}

double SettingsButtonStyle::height() const {
    const auto* const image = settingsImages().off;
    return image != nullptr ? image->size().height() : 0;
}

void SettingsButtonStyle::paint(QPainter& painter, const QRectF& body,
                                const platform::ButtonConfiguration& configuration) const {
    paintLabelled(painter, body, settingsImages(), font(), kitColor("buttonText"), configuration,
                  false);
}

} // namespace fernhorn
