#include "platform/ui/focus_ring.hpp"

#include <QPainter>
#include <QPalette>

namespace platform {

void paintFocusRing(QPainter& painter, const QRectF& bounds, double radius,
                    const QPalette& palette) {
    constexpr double width = 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette.color(QPalette::Highlight).lighter(120), width));
    constexpr double inset = width / 2;
    painter.drawRoundedRect(bounds.adjusted(inset, inset, -inset, -inset), radius, radius);
    painter.restore();
}

} // namespace platform
