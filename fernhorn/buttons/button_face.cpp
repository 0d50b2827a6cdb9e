#include "fernhorn/buttons/button_face.hpp"

#include "fernhorn/fonts/resource_bundle_accessor.hpp"

#include <QFontMetricsF>
#include <QPainter>

namespace fernhorn {
namespace {

constexpr double keyCaptionSize = 13; // points
constexpr double captionInset = 5;    // from the sides of the button
constexpr FernFont captionFace = FernFont::dosisMedium;

template<class T>
T pick(const ButtonState& state, T off, T on, T offDown, T onDown) {
    if (state.isPressed) {
        return state.isOn ? onDown : offDown;
    }
    return state.isOn ? on : off;
}

} // namespace

ButtonImages ButtonImages::ofKit(const char* off, const char* on, const char* offDown,
                                 const char* onDown) {
    const auto image = [&](const char* name) {
        return resourceBundle().assets().image(QString::fromLatin1(name));
    };
    return {image(off), image(on), image(offDown), image(onDown)};
}

const platform::ImageAsset* ButtonImages::image(const ButtonState& state) const {
    return pick(state, off, on, offDown, onDown);
}

double CaptionLift::of(const ButtonState& state) const {
    return pick(state, off, on, offDown, onDown);
}

ButtonCaption ButtonCaption::onKey(const QString& text) {
    return {.text = text,
            .font = CustomFontModifier{captionFace, keyCaptionSize}.resolved(),
            .color = kitColor("chaosToggleText"),
            .pressedColor = kitColor("chaosToggleTextPressed"),
            .lift = {.off = 4.5, .on = 3, .offDown = 0.5, .onDown = 0.5}};
}

ButtonCaption ButtonCaption::onPanel(const QString& text, double fontSize, const QColor& color) {
    return {.text = text,
            .font = CustomFontModifier{captionFace, fontSize}.resolved(),
            .color = color,
            .pressedColor = color,
            .lift = {.off = 0.5, .on = 1.5, .offDown = -0.5, .onDown = 0.5}};
}

QColor kitColor(const char* name) {
    return resourceBundle().assets().color(QString::fromLatin1(name));
}

double capitalsLift(const QFont& font) {
    const QFontMetricsF metrics(font);
    return metrics.ascent() - (metrics.capHeight() + metrics.height()) / 2;
}

void paintButtonFace(QPainter& painter, const QRectF& bounds, const ButtonFace& face,
                     const ButtonState& state, platform::LineText& layout) {
    const double opacity = painter.opacity();
    painter.setOpacity(state.isEnabled ? opacity : opacity * 0.5);
    if (const auto* const image = face.images.image(state)) {
        platform::paintCellImage({painter, face.caption.color}, platform::toRect(bounds), *image, 1,
                                 platform::CellImageResizing::stretch);
    }
    const ButtonCaption& caption = face.caption;
    if (!caption.text.isEmpty()) {
        const double lift = caption.lift.of(state) + capitalsLift(caption.font);
        const QRectF place =
            bounds.adjusted(captionInset, 0, -captionInset, 0).translated(0, -lift);
        layout.paint(painter, platform::toRect(place), caption.text, caption.font,
                     state.isPressed ? caption.pressedColor : caption.color);
    }
    painter.setOpacity(opacity);
}

} // namespace fernhorn
