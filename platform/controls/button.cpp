#include "platform/controls/button.hpp"

#include "platform/controls/focus_ring.hpp"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>
#include <utility>

namespace platform {

Button::Button(const QString& label, std::shared_ptr<const ButtonStyle> style, QWidget* parent)
    : AbstractButton(parent), style_(std::move(style)) {
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

void Button::enterEvent(QEnterEvent* event) {
    AbstractButton::enterEvent(event);
    update();
}

void Button::leaveEvent(QEvent* event) {
    AbstractButton::leaveEvent(event);
    update();
}

void Button::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    style_->paint(painter, QRectF(rect()),
                  {text(), isDown(), isEnabled(), isEnabled() && underMouse()});
    if (showsFocusRing()) {
        paintFocusRing(painter, QRectF(rect()),
                       palette().color(QPalette::Active, QPalette::Highlight), 4);
    }
}

} // namespace platform
