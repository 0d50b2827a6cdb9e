#pragma once

#include <QRectF>
#include <Qt>

class QPainter;
class QPalette;

namespace platform {

/// True when focus came by a key, so that it should be seen; a click needs no ring.
inline bool isKeyboardFocus(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason || reason == Qt::ActiveWindowFocusReason;
}

/// Paints the one focus ring of the house just inside of `bounds`, with corners of that radius.
void paintFocusRing(QPainter& painter, const QRectF& bounds, double radius,
                    const QPalette& palette);

} // namespace platform
