#include "driftwood/declarative/button_styles.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "platform/assets/image_painter.hpp"
#include "platform/assets/system_font.hpp"

#include <QPainter>

namespace driftwood {

void BezelButtonStyle::paint(QPainter& painter, const QRectF& body,
                             const platform::ButtonConfiguration& configuration) const {
    const platform::AssetCatalog& assets = resourceBundle().assets();
    const bool isPressed = configuration.isPressed;
    if (const platform::ImageAsset* const bezel = assets.image(
            isPressed ? QStringLiteral("dwk-button-down") : QStringLiteral("dwk-button"))) {
        platform::paintImage(painter, body, *bezel);
    }
    if (configuration.isHovered && !isPressed) {
        // Over the bezel's body, whose light and shadow stay.
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 255, 255, 16));
        painter.drawRoundedRect(body.adjusted(1, 1, -1, -2), 3.5, 3.5);
    }
    QColor ink = assets.color(isPressed ? QStringLiteral("Grey 50%") : QStringLiteral("Grey 85%"));
    if (!configuration.isEnabled) {
        ink.setAlphaF(ink.alphaF() * disabledOpacity());
    }
    painter.setPen(ink);
    painter.setFont(font());
    painter.drawText(body, Qt::AlignCenter | Qt::TextSingleLine, configuration.label);
}

QFont DefaultKestrelButtonStyle::font() const {
    return platform::systemFont(11, QFont::Normal);
}

QFont FennickButtonStyle::font() const {
    return platform::systemFont(12, QFont::Bold, platform::FontDesign::rounded);
}

} // namespace driftwood
