#include "platform/controls/focus_ring.hpp"

#include <QPainter>
#include <QPalette>

namespace platform {

void paintFocusRing(QPainter& painter, const QRectF& bounds, const QColor& color, double radius,
                    FocusRingFill fill) {
    constexpr double width = 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor light = color;
    light.setAlphaF(light.alphaF() * 0.3F);
    painter.setBrush(fill == FocusRingFill::light ? QBrush(light) : QBrush(Qt::NoBrush));
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    constexpr double inset = width / 2;
    painter.drawRoundedRect(bounds.adjusted(inset, inset, -inset, -inset), radius, radius);
    painter.restore();
}

void paintFocusRing(QPainter& painter, const QRectF& bounds, double radius,
                    const QPalette& palette) {
    paintFocusRing(painter, bounds, palette.color(QPalette::Active, QPalette::Highlight), radius,
                   FocusRingFill::none);
}

} // namespace platform
