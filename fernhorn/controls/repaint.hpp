#pragma once

#include <QWidget>

namespace fernhorn {

/// Repaints a widget that its ground shows through. That repaints the ground as well, so the ground
/// is asked right away: many such widgets in one parent, asked one by one, would each be compared
/// with all their siblings.
inline void repaintWithGround(QWidget& widget) {
    QWidget* const parent = widget.parentWidget();
    if (parent == nullptr || widget.isWindow()) {
        widget.update();
    } else if (widget.isVisible()) {
        parent->update(widget.geometry());
    }
}

} // namespace fernhorn
