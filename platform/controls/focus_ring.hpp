#pragma once

#include <QRectF>
#include <Qt>

class QPainter;
class QPalette;

namespace platform {

/// Whether a control should show its focus after a focus event: when focus came by a key, not by a
/// click. A popup or another window that borrows the focus changes nothing (`before`).
inline bool showsFocusAfter(Qt::FocusReason reason, bool before) {
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        return true;
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
        return before;
    default:
        return false;
    }
}

/// Paints the one focus ring of the house just inside of `bounds`, with corners of that radius.
void paintFocusRing(QPainter& painter, const QRectF& bounds, double radius,
                    const QPalette& palette);

} // namespace platform
