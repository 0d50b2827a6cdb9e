#include "fernhorn/controls/dial.hpp"

#include "fernhorn/controls/film_strip.hpp"
#include "fernhorn/controls/repaint.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/format/default_label_formatter.hpp"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace fernhorn {
namespace {

std::shared_ptr<const LabelFormatter> orDefault(std::shared_ptr<const LabelFormatter> formatter,
                                                const AudioParameter& param) {
    return formatter != nullptr ? std::move(formatter)
                                : std::make_shared<DefaultLabelFormatter>(param, 1);
}

} // namespace

Dial::Dial(std::shared_ptr<AudioParameter> param, const DialDesign& design,
           const LabelDisplayOptions& labelDisplayOptions,
           std::shared_ptr<const LabelFormatter> formatter, std::function<void()> onEditingEnded,
           QWidget* parent)
    : KnobControl(param, design.knobMinDrag, design.knobDragScaleFactor, design.imageCount,
                  filmStripContent(FilmStrip::ofKit(design.frames, design.imageCount)), parent),
      knobSize_(design.knobSize),
      knobLift_(design.knobLift),
      label_(*this, param, labelDisplayOptions, orDefault(std::move(formatter), *param),
             std::move(onEditingEnded), resourceBundle().assets().color(design.labelColor),
             design.labelFont) {
    setReadOutFormatter(label_.editing().formatter());
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&label_, &LabelPart::submitted, this, &Dial::announceEdit);
}

Dial::~Dial() = default;

void Dial::openField() {
    if (isEnabled()) {
        label_.open();
    }
}

double Dial::overhang() const {
    return dialOverhang(knobSize_, knobLift_, label_.height());
}

QSize Dial::sizeHint() const {
    return {static_cast<int>(std::ceil(std::max(knobSize_.width, label_.usualWidth()))),
            static_cast<int>(std::ceil(overhang() + std::max(knobSize_.height, label_.height())))};
}

QRectF Dial::knobRect() const {
    return knobRect_;
}

KnobClick Dial::clickAt(QPointF point) const {
    return label_.rect().contains(point) ? KnobClick::doesNothing : KnobClick::resets;
}

void Dial::valueDidChange(float value) {
    if (label_.valueDidChange(value)) {
        repaintWithGround(*this);
    }
    KnobControl::valueDidChange(value);
}

bool Dial::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        if (mouse.button() == Qt::LeftButton) {
            isLabelPressed_ = isEnabled() && clickAt(mouse.position()) == KnobClick::doesNothing;
        }
        break;
    }
    case QEvent::MouseButtonRelease: {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        const bool isClick = mouse.button() == Qt::LeftButton &&
                             std::exchange(isLabelPressed_, false) && isPressed() &&
                             !lastDragValue() && label_.rect().contains(mouse.position());
        const QPointer<Dial> self(this);
        const bool isDealtWith = KnobControl::event(event);
        if (self != nullptr && isClick) {
            openField();
        }
        return isDealtWith;
    }
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress: {
        if (isEditing()) {
            // The field has not wanted it; the host may.
            event->ignore();
            return false;
        }
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            event->accept();
            if (event->type() == QEvent::KeyPress) {
                openField();
            }
            return true;
        }
        break;
    }
    default:
        break;
    }
    return KnobControl::event(event);
}

void Dial::resizeEvent(QResizeEvent* /*event*/) {
    const DialLayout layout =
        layOutDial({static_cast<double>(width()), static_cast<double>(height())}, knobSize_,
                   knobLift_, label_.height());
    knobRect_ = {layout.knob.origin.x, layout.knob.origin.y, layout.knob.size.width,
                 layout.knob.size.height};
    label_.setCenter({layout.labelCenter.x, layout.labelCenter.y});
    update();
}

void Dial::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintKnob(painter);
    label_.paint(painter);
}

} // namespace fernhorn
