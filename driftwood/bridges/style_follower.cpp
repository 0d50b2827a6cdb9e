#include "driftwood/bridges/style_follower.hpp"

#include <QWidget>

namespace driftwood {

core::Subscription followStyle(QWidget& widget, BaseStyle& style) {
    return style.observe([&widget](StyleChange change) {
        if (change == StyleChange::layout) {
            widget.updateGeometry();
        }
        widget.update();
    });
}

} // namespace driftwood
