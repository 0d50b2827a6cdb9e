#include "fernhorn/controls/value_field.hpp"

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
    if (isSubmit(*event)) {
        event->accept();
        emit submitted();
    } else if (event->key() == Qt::Key_Escape) {
        event->accept();
        emit escaped();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void ValueField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) { // its own menu comes back
        emit left();
    }
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
