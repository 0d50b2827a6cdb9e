#include "fernhorn/dials/value_label.hpp"

#include "fernhorn/dials/internal/accessible.hpp"
#include "fernhorn/format/default_label_formatter.hpp"
#include "fernhorn/format/label_name_formatter.hpp"
#include "platform/controls/focus_ring.hpp"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>
#include <utility>

namespace fernhorn {

std::shared_ptr<const LabelFormatter> makeReadOutFormatter(const AudioParameter& parameter) {
    const auto& names = parameter.valueStrings();
    const ValueRange range = parameter.valueRange();
    if (parameter.isIndexed() && names && range.lower >= 0 &&
        range.upper < static_cast<float>(names->size())) {
        return std::make_shared<LabelNameFormatter>(parameter);
    }
    return std::make_shared<DefaultLabelFormatter>(parameter, 1);
}

QString textWithUnit(const AudioParameter& parameter, const LabelFormatter& formatter,
                     float value) {
    const QString text = QString::fromStdString(formatter.format(value));
    const std::string_view suffix = parameter.displayableSuffix();
    return suffix.empty() || formatter.writesUnit()
               ? text
               : text + u' ' +
                     QString::fromUtf8(suffix.data(), static_cast<qsizetype>(suffix.size()));
}

LabelEditing::LabelEditing(std::shared_ptr<AudioParameter> param,
                           std::shared_ptr<const LabelFormatter> formatter,
                           std::function<void()> onEditingEnded)
    : param_(std::move(param)),
      formatter_(std::move(formatter)),
      onEditingEnded_(std::move(onEditingEnded)) {}

bool LabelEditing::click() {
    if (isEditing_) {
        return false;
    }
    valueDidChange(param_->value()); // what was typed and abandoned is over
    isEditing_ = true;
    return true;
}

void LabelEditing::submit() {
    const auto self = shared_from_this(); // whoever is told may destroy the label
    if (const auto typed = formatter_->parse(valueString_)) {
        param_->setValue(*typed * param_->displayScaleFactor(), ParameterEditor::ui,
                         ParameterEditorState::change);
    }
    end();
}

void LabelEditing::end() {
    const auto self = shared_from_this();
    if (onEditingEnded_) {
        onEditingEnded_();
    }
    valueDidChange(param_->value());
    isEditing_ = false;
}

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
    const bool isRepeat = heldKey_.isRepeat(*event);
    if (isReturn && !isEditing()) {
        if (!isRepeat) {
            openField();
        }
    } else {
        event->ignore(); // the host may want it
    }
}

void DialLabel::keyReleaseEvent(QKeyEvent* event) {
    static_cast<void>(heldKey_.isRepeat(*event));
    event->ignore();
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
