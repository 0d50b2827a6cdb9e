#pragma once

#include <QColor>
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

/// Whether the inside of a focus ring is tinted, too: of a button it is; a text or a picture keeps
/// its colours.
enum class FocusRingFill { light, none };

/// The one focus ring of the house: 2 points wide just inside of `bounds`, its middle line a
/// rounded rectangle; filled with the colour at 0.3. Main thread.
void paintFocusRing(QPainter& painter, const QRectF& bounds, const QColor& color, double radius = 3,
                    FocusRingFill fill = FocusRingFill::light);

/// The same around what is not to be tinted, in the palette's colour of the active window.
void paintFocusRing(QPainter& painter, const QRectF& bounds, double radius,
                    const QPalette& palette);

} // namespace platform
