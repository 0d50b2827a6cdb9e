#include "fernhorn/controls/button_face.hpp"

#include "fernhorn/fonts/resource_bundle_accessor.hpp"

#include <QPainter>

namespace fernhorn {
namespace {

constexpr double keyCaptionSize = 13; // points
constexpr double captionInset = 5;    // from the sides of the button
constexpr FernFont captionFace = FernFont::dosisMedium;

} // namespace

ButtonImages ButtonImages::ofKit(const char* off, const char* on, const char* offDown,
                                 const char* onDown) {
    const auto image = [&](const char* name) {
        return resourceBundle().assets().image(QString::fromLatin1(name));
    };
    return {image(off), image(on), image(offDown), image(onDown)};
}

const platform::ImageAsset* ButtonImages::image(const ButtonState& state) const {
    if (state.isPressed) {
        return state.isOn ? onDown : offDown;
    }
    return state.isOn ? on : off;
}

double CaptionLift::of(const ButtonState& state) const {
    if (state.isPressed) {
        return pressed;
    }
    return state.isOn ? on : off;
}

ButtonCaption ButtonCaption::onKey(const QString& text) {
    return {.text = text,
            .font = CustomFontModifier{captionFace, keyCaptionSize}.resolved(),
            .color = kitColor("chaosToggleText"),
            .pressedColor = kitColor("chaosToggleTextPressed"),
            .lift = {.off = 5, .on = 4, .pressed = 1}};
}

ButtonCaption ButtonCaption::onPanel(const QString& text, double fontSize, const QColor& color) {
    return {.text = text,
            .font = CustomFontModifier{captionFace, fontSize}.resolved(),
            .color = color,
            .pressedColor = color,
            .lift = {.off = 1, .on = 1, .pressed = 0}};
}

QColor kitColor(const char* name) {
    return resourceBundle().assets().color(QString::fromLatin1(name));
}

void paintButtonFace(QPainter& painter, const QRectF& bounds, const ButtonFace& face,
                     const ButtonState& state, platform::TitleText& layout) {
    const double opacity = painter.opacity();
    painter.setOpacity(state.isEnabled ? opacity : opacity * 0.5);
    if (const auto* const image = face.images.image(state)) {
        platform::paintCellImage({painter, face.caption.color}, platform::toRect(bounds), *image, 1,
                                 platform::CellImageResizing::stretch);
    }
    const ButtonCaption& caption = face.caption;
    if (!caption.text.isEmpty()) {
        const QRectF place = bounds.adjusted(captionInset, 0, -captionInset, 0)
                                 .translated(0, -caption.lift.of(state));
        layout.paint(painter, platform::toRect(place), caption.text, caption.font,
                     state.isPressed ? caption.pressedColor : caption.color);
    }
    painter.setOpacity(opacity);
}

} // namespace fernhorn
