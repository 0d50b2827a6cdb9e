#include "fernhorn/dials/knob_control.hpp"

#include "fernhorn/dials/internal/accessible.hpp"
#include "fernhorn/dials/internal/knob_input.hpp"
#include "fernhorn/dials/pictures.hpp"
#include "fernhorn/dials/value_label.hpp"
#include "platform/controls/focus_ring.hpp"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace fernhorn {

KnobContent filmStripContent(const FilmStrip& strip) {
    return [&strip](QPainter& painter, const QRectF& rect, int imageIndex) {
        strip.paint(painter, rect, imageIndex);
    };
}

KnobControl::KnobControl(std::shared_ptr<AudioParameter> param, double knobMinDrag,
                         float knobDragScaleFactor, std::int64_t imageCount, KnobContent content,
                         QWidget* parent)
    : QWidget(parent),
      param_(std::move(param)),
      feel_{knobMinDrag, knobDragScaleFactor},
      imageCount_(imageCount),
      content_(std::move(content)),
      readOutFormatter_(makeReadOutFormatter(*param_)),
      input_(std::make_unique<KnobInput>(*this, param_, feel_,
                                         [this] {
                                             return showsValue()
                                                        ? QString()
                                                        : textWithUnit(*param_, *readOutFormatter_,
                                                                       param_->value());
                                         })),
      valueObserver_(param_->observeValue([this](float value) { valueDidChange(value); })) {
    installKnobAccessibility();
    setFocusPolicy(Qt::TabFocus);
}

KnobControl::~KnobControl() = default;

std::optional<double> KnobControl::lastDragValue() const {
    return input_->drag().lastDragValue();
}

std::optional<float> KnobControl::continuousDragValue() const {
    return input_->drag().continuousDragValue();
}

bool KnobControl::isPressed() const {
    return input_->drag().isPressed();
}

void KnobControl::setReadOutFormatter(std::shared_ptr<const LabelFormatter> formatter) {
    readOutFormatter_ = std::move(formatter);
}

void KnobControl::announceEdit() {
    announceKnobValue(*this);
}

void KnobControl::valueDidChange(float value) {
    const int index = param_->imageIndex(value, static_cast<int>(imageCount_));
    if (index != imageIndex_) {
        imageIndex_ = index;
        repaintWithGround(*this);
    }
    input_->valueDidChange();
}

bool KnobControl::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::Polish:
        valueDidChange(param_->value());
        break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        showsFocus_ =
            platform::showsFocusAfter(static_cast<QFocusEvent*>(event)->reason(), showsFocus_);
        update();
        break;
    case QEvent::EnabledChange:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        update();
        break;
    case QEvent::Paint: // most of all events
        return QWidget::event(event);
    default:
        break;
    }
    const bool isPress =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    const KnobClick click =
        isPress ? clickAt(static_cast<QMouseEvent*>(event)->position()) : KnobClick::resets;
    const QPointer<KnobControl> self(this);
    const auto param = param_;
    const float before = param->valueWithPendingEdits();
    const bool isDealtWith = input_->handle(*event, click);
    if (self == nullptr) {
        return true;
    }
    if (isDealtWith) {
        if (param->valueWithPendingEdits() != before) {
            announceEdit();
        }
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void KnobControl::paintKnob(QPainter& painter) {
    if (!isEnabled()) {
        painter.setOpacity(0.5);
    }
    const QRectF place = knobRect();
    content_(painter, place, imageIndex_);
    if (showsFocus_ && hasFocus() && isActiveWindow()) {
        const auto [bounds, radius] = focusShape();
        platform::paintFocusRing(painter, bounds, radius, palette());
    }
}

void KnobControl::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintKnob(painter);
}

} // namespace fernhorn
