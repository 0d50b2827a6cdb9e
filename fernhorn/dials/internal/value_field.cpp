#include "fernhorn/dials/internal/value_field.hpp"

#include <QAccessible>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

namespace fernhorn {
namespace {

bool isSubmit(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

ValueField::ValueField(QWidget& label) : QLineEdit(&label) {
    setFrame(false);
    setAlignment(Qt::AlignCenter);
    setTextMargins(4, 2, 4, 2);
    setAttribute(Qt::WA_MacShowFocusRect, false);
}

void ValueField::follow(const QString& text) {
    if (text == this->text()) {
        return; // the selection stays
    }
    const bool isWholeSelected = hasSelectedText() && selectedText() == this->text();
    const auto told = QAccessible::installUpdateHandler([](QAccessibleEvent*) {});
    setText(text);
    if (isWholeSelected) {
        selectAll();
    }
    QAccessible::installUpdateHandler(told);
}

bool ValueField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<QKeyEvent&>(*event);
        if (isSubmit(key) || key.key() == Qt::Key_Escape) {
            event->accept(); // ours before any dialog's
            return true;
        }
    }
    return QLineEdit::event(event);
}

void ValueField::keyPressEvent(QKeyEvent* event) {
    const bool isRepeat = heldKey_.isRepeat(*event);
    if (isSubmit(*event)) {
        event->accept();
        if (!isRepeat) { // the key that has opened the field may still be held
            emit submitted();
        }
    } else if (event->key() == Qt::Key_Escape) {
        event->accept();
        emit escaped();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void ValueField::keyReleaseEvent(QKeyEvent* event) {
    static_cast<void>(heldKey_.isRepeat(*event));
    QLineEdit::keyReleaseEvent(event);
}

void ValueField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // Its own menu gives the keyboard back, and so does another window.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
        emit left();
    }
}

bool ValueField::focusNextPrevChild(bool isNext) {
    // Made late, the field stands last in the window; its place is the label's.
    parentWidget()->setFocus(isNext ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return QLineEdit::focusNextPrevChild(isNext);
}

void ValueField::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.setBrush(palette().color(QPalette::Window).darker(140));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    }
    QLineEdit::paintEvent(event);
}

} // namespace fernhorn
