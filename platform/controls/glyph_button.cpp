#include "platform/controls/glyph_button.hpp"

#include "platform/assets/asset_catalog.hpp"
#include "platform/assets/image_painter.hpp"
#include "platform/controls/focus_ring.hpp"

#include <QPainter>

namespace platform {

GlyphButton::GlyphButton(const QString& glyph, const QString& name, const AssetCatalog& assets,
                         QWidget* parent)
    : AbstractButton(parent), glyph_(glyph), assets_(assets) {
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    resize(sizeHint());
}

void GlyphButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ink = palette().color(QPalette::WindowText);
    if (isDown() || underMouse()) {
        QColor plate = ink;
        plate.setAlphaF(isDown() ? 0.18F : 0.10F);
        painter.setPen(Qt::NoPen);
        painter.setBrush(plate);
        painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 4, 4);
    } else {
        ink.setAlphaF(0.6F);
    }
    if (const ImageAsset* const image = assets_.image(glyph_)) {
        paintImage(painter, QRectF(rect()), *image, ink);
    }
    if (showsFocusRing()) {
        paintFocusRing(painter, QRectF(rect()).adjusted(1, 1, -1, -1),
                       palette().color(QPalette::Active, QPalette::Highlight), 4);
    }
}

} // namespace platform
