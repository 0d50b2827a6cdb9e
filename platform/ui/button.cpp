#include "platform/ui/button.hpp"

#include "platform/ui/focus_ring.hpp"

#include <QFocusEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>
#include <utility>

namespace platform {

Button::Button(const QString& label, std::shared_ptr<const ButtonStyle> style, QWidget* parent)
    : QAbstractButton(parent), style_(std::move(style)) {
    setText(label);
    setFont(style_->font());
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Button::setLabelWidth(double width) {
    labelWidth_ = width;
    updateGeometry();
}

void Button::setButtonStyle(std::shared_ptr<const ButtonStyle> style) {
    if (style == style_) {
        return;
    }
    style_ = std::move(style);
    setFont(style_->font());
    updateGeometry();
    update();
}

QSize Button::sizeHint() const {
    const double width =
        labelWidth_ > 0 ? labelWidth_ : QFontMetricsF(style_->font()).horizontalAdvance(text());
    const QMarginsF padding = style_->labelPadding();
    return QSizeF(std::ceil(width + padding.left() + padding.right()), std::ceil(style_->height()))
        .toSize();
}

bool Button::event(QEvent* event) {
    if (!isEnabled()) {
        // A disabled button does nothing, but still gives way under the pointer.
        const auto press = [this](bool isPressed) {
            isPressedWhileDisabled_ = isPressed;
            update();
        };
        if (event->type() == QEvent::MouseButtonPress ||
            event->type() == QEvent::MouseButtonDblClick) {
            press(static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton);
            return true;
        }
        if (event->type() == QEvent::MouseButtonRelease) {
            press(false);
            return true;
        }
    } else if (event->type() == QEvent::EnabledChange) {
        isPressedWhileDisabled_ = false;
    }
    return QAbstractButton::event(event);
}

void Button::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    style_->paint(painter, QRectF(rect()),
                  {text(), isDown() || isPressedWhileDisabled_, isEnabled()});
    if (showsFocus_ && hasFocus()) {
        paintFocusRing(painter, QRectF(rect()), 4, palette());
    }
}

void Button::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
        !event->isAutoRepeat()) {
        animateClick();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void Button::focusInEvent(QFocusEvent* event) {
    showsFocus_ = showsFocusAfter(event->reason(), showsFocus_);
    QAbstractButton::focusInEvent(event);
}

void Button::focusOutEvent(QFocusEvent* event) {
    showsFocus_ = showsFocusAfter(event->reason(), showsFocus_);
    QAbstractButton::focusOutEvent(event);
}

} // namespace platform
