#include "shaders/pin_to_superview.hpp"

#include <QEvent>
#include <QWidget>

namespace kestrel {
namespace {

/// Lives with the view and follows the superview's size.
class Pin final : public QObject {
  public:
    Pin(QWidget& view, QWidget& superview, const core::EdgeInsets& insets)
        : QObject(&view), view_(view), superview_(superview), insets_(insets) {
        superview.installEventFilter(this);
        view.installEventFilter(this);
        place();
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == &superview_ &&
            (event->type() == QEvent::Resize || event->type() == QEvent::LayoutDirectionChange)) {
            place();
        } else if (object == &view_ && event->type() == QEvent::ParentChange &&
                   view_.parentWidget() != &superview_) {
            superview_.removeEventFilter(this);
            deleteLater();
        }
        return false;
    }

  private:
    void place() {
        const bool isMirrored = superview_.isRightToLeft();
        const double left = isMirrored ? insets_.right : insets_.left;
        const double right = isMirrored ? insets_.left : insets_.right;
        const QRectF area =
            QRectF(superview_.rect()).adjusted(left, insets_.top, -right, -insets_.bottom);
        const QRect place = area.toRect();
        view_.setGeometry({place.topLeft(), place.size().expandedTo(QSize(0, 0))});
    }

    QWidget& view_;
    QWidget& superview_;
    core::EdgeInsets insets_;
};

} // namespace

void pinToSuperview(QWidget& view, QWidget* superview, const core::EdgeInsets& insets) {
    if (superview == nullptr) {
        return;
    }
    for (QObject* const child : view.children()) {
        if (auto* const old = dynamic_cast<Pin*>(child)) {
            delete old;
            break;
        }
    }
    new Pin(view, *superview, insets); // owned by the view
}

} // namespace kestrel
