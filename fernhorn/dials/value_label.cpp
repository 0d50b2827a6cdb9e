#include "fernhorn/controls/dial_label.hpp"

#include "fernhorn/controls/dial_label_accessible.hpp"
#include "platform/ui/focus_ring.hpp"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>
#include <utility>

namespace fernhorn {

DialLabel::DialLabel(std::shared_ptr<AudioParameter> param,
                     const LabelDisplayOptions& displayOptions,
                     std::shared_ptr<const LabelFormatter> formatter,
                     std::function<void()> onEditingEnded, const QColor& color, FernFont font,
                     QWidget* parent)
    : QWidget(parent),
      label_(*this, std::move(param), displayOptions, std::move(formatter),
             std::move(onEditingEnded), color, font),
      valueObserver_(label_.editing().param()->observeValue([this](float value) {
          if (label_.valueDidChange(value)) {
              update();
          }
      })) {
    installDialLabelAccessibility();
    setFocusPolicy(Qt::TabFocus);
}

DialLabel::~DialLabel() = default;

QString DialLabel::valueString() const {
    return QString::fromStdString(label_.editing().valueString());
}

void DialLabel::openField() {
    if (isEnabled()) {
        label_.open();
    }
}

QSize DialLabel::sizeHint() const {
    return {static_cast<int>(label_.usualWidth()), static_cast<int>(std::ceil(label_.height()))};
}

bool DialLabel::event(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) {
        isPressed_ = false;
        update();
    }
    return QWidget::event(event);
}

void DialLabel::resizeEvent(QResizeEvent* /*event*/) {
    label_.setCenter(QRectF(rect()).center());
}

void DialLabel::mousePressEvent(QMouseEvent* event) {
    isPressed_ = event->button() == Qt::LeftButton;
    event->setAccepted(isPressed_);
}

void DialLabel::mouseReleaseEvent(QMouseEvent* event) {
    const bool isClick = event->button() == Qt::LeftButton && std::exchange(isPressed_, false) &&
                         rect().contains(event->position().toPoint());
    if (isClick) {
        openField();
    }
}

void DialLabel::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && !isEditing()) {
        openField();
    } else {
        event->ignore(); // the host may want it
    }
}

void DialLabel::focusInEvent(QFocusEvent* event) {
    showsFocus_ = platform::showsFocusAfter(event->reason(), showsFocus_);
    update();
}

void DialLabel::focusOutEvent(QFocusEvent* event) {
    showsFocus_ = platform::showsFocusAfter(event->reason(), showsFocus_);
    update();
}

void DialLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (!isEnabled()) {
        painter.setOpacity(0.5);
    }
    label_.paint(painter);
    if (showsFocus_ && hasFocus() && isActiveWindow()) {
        platform::paintFocusRing(painter, QRectF(rect()), 4, palette());
    }
}

} // namespace fernhorn
