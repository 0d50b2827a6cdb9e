#include "fernhorn/fonts/fern_font.hpp"

#include "fernhorn/fonts/resource_bundle_accessor.hpp"

#include <QWidget>

namespace fernhorn {

QString fontName(FernFont font) {
    switch (font) {
    case FernFont::rocket:
        return QStringLiteral("Rocket");
    case FernFont::dosisLight:
        return QStringLiteral("Dosis-Light");
    case FernFont::dosisMedium:
        return QStringLiteral("Dosis-Medium");
    }
    return {};
}

QFont CustomFontModifier::resolved() const {
    return resourceBundle().assets().font(fontName(font), size);
}

void CustomFontModifier::apply(QWidget& view) const {
    view.setFont(resolved());
}

void fernFont(QWidget& view, FernFont font, double size) {
    CustomFontModifier{font, size}.apply(view);
}

void rocketFont(QWidget& view, double size) {
    fernFont(view, FernFont::rocket, size);
}

} // namespace fernhorn
