#include "driftwood/controls/simple_views.hpp"

#include "platform/controls/accessible_role.hpp"
#include "platform/controls/focus_ring.hpp"

#include <QChildEvent>
#include <QKeyEvent>
#include <QMoveEvent>
#include <QPainter>

#include <algorithm>

namespace driftwood {
namespace {

constexpr int grabWidth = 5;
constexpr int keyStep = 8; // points

/// Lies over both views, and is seen only with the keyboard.
class InvisibleDivider final : public QSplitterHandle {
  public:
    InvisibleDivider(Qt::Orientation orientation, QSplitter* parent)
        : QSplitterHandle(orientation, parent) {
        platform::setAccessibleRole(*this, QAccessible::Splitter);
        //: for screen readers: where two views of a split view meet
        setAccessibleName(QCoreApplication::translate("driftwood::NoDividerSplitView", "Divider"));
        setFocusPolicy(Qt::TabFocus);
    }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QSplitterHandle::resizeEvent(event);
        clearMask(); // where it can be grabbed, the focus is painted, too
    }

    void paintEvent(QPaintEvent* /*event*/) override {
        if (showsFocus_ && hasFocus() && isActiveWindow()) {
            QPainter painter(this);
            QColor color = palette().color(QPalette::Active, QPalette::Highlight);
            painter.setPen(Qt::NoPen);
            painter.setBrush(color);
            painter.setRenderHint(QPainter::Antialiasing);
            const QPoint middle = rect().center();
            const QRect line = orientation() == Qt::Horizontal
                                   ? QRect(middle.x() - 1, 0, 2, height())
                                   : QRect(0, middle.y() - 1, width(), 2);
            painter.drawRoundedRect(line, 1, 1);
        }
    }

    void focusInEvent(QFocusEvent* event) override {
        showsFocus_ = platform::showsFocusAfter(event->reason(), showsFocus_);
        update();
    }
    void focusOutEvent(QFocusEvent* /*event*/) override { update(); }

    void keyPressEvent(QKeyEvent* event) override {
        const bool isHorizontal = orientation() == Qt::Horizontal;
        QList<int> sizes = splitter()->sizes();
        const int index = splitter()->indexOf(this);
        int previous = index - 1;
        while (previous > 0 && splitter()->widget(previous)->isHidden()) {
            --previous;
        }
        int& before = sizes[previous];
        int& after = sizes[index];
        const int all = before + after;
        int by = 0;
        if (event->key() == (isHorizontal ? Qt::Key_Left : Qt::Key_Up)) {
            by = -keyStep;
        } else if (event->key() == (isHorizontal ? Qt::Key_Right : Qt::Key_Down)) {
            by = keyStep;
        } else if (event->key() == Qt::Key_Home) {
            by = -all;
        } else if (event->key() == Qt::Key_End) {
            by = all;
        } else {
            event->ignore();
            return;
        }
        before = std::clamp(before + (isHorizontal && isRightToLeft() ? -by : by), 0, all);
        after = all - before;
        splitter()->setSizes(sizes); // keeps to the views' smallest sizes
        emit splitter()->splitterMoved(isHorizontal ? x() : y(), index);
    }

  private:
    bool showsFocus_ = false;
};

} // namespace

StyledFlippedView::StyledFlippedView(QWidget* parent)
    : FlippedView(parent), follower_(*this, style()) {}

void StyledFlippedView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), toQColor(style().backgroundColor()));
}

NoDividerSplitView::NoDividerSplitView(Qt::Orientation orientation, QWidget* parent)
    : QSplitter(orientation, parent) {
    setHandleWidth(0);
    setChildrenCollapsible(false);
}

// Where one reads from the right, the toolkit puts every view one point too far to the right.

void NoDividerSplitView::childEvent(QChildEvent* event) {
    if (event->added() && qobject_cast<QSplitterHandle*>(event->child()) == nullptr) {
        event->child()->installEventFilter(this);
    }
    QSplitter::childEvent(event);
}

bool NoDividerSplitView::eventFilter(QObject* object, QEvent* event) {
    auto* const view = qobject_cast<QWidget*>(object);
    if (event->type() == QEvent::Move && view != nullptr && indexOf(view) >= 0 &&
        orientation() == Qt::Horizontal && isRightToLeft()) {
        const auto& move = *static_cast<const QMoveEvent*>(event);
        if (!isMoving_ && move.pos() == view->pos()) {
            isMoving_ = true;
            view->move(view->x() - 1, view->y());
            isMoving_ = false;
        }
    }
    return QSplitter::eventFilter(object, event);
}

QSplitterHandle* NoDividerSplitView::createHandle() {
    return new InvisibleDivider(orientation(), this);
}

} // namespace driftwood
