#include "platform/ui/glyph_button.hpp"

#include "platform/assets/asset_catalog.hpp"
#include "platform/assets/image_painter.hpp"
#include "platform/ui/focus_ring.hpp"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

namespace platform {

GlyphButton::GlyphButton(const QString& glyph, const QString& name, const AssetCatalog& assets,
                         QWidget* parent)
    : QAbstractButton(parent), glyph_(glyph), assets_(assets) {
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    resize(sizeHint());
}

bool GlyphButton::event(QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        showsFocus_ = showsFocusAfter(static_cast<QFocusEvent*>(event)->reason(), showsFocus_);
    }
    return QAbstractButton::event(event);
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
    if (showsFocus_ && hasFocus()) {
        paintFocusRing(painter, QRectF(rect()).adjusted(1, 1, -1, -1), 4, palette());
    }
}

void GlyphButton::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
        !event->isAutoRepeat()) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

} // namespace platform
