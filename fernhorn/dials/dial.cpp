#include "fernhorn/dials/dial.hpp"

#include "fernhorn/dials/pictures.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/format/default_label_formatter.hpp"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace fernhorn {
namespace {

std::shared_ptr<const LabelFormatter> orDefault(std::shared_ptr<const LabelFormatter> formatter,
                                                const AudioParameter& param) {
    return formatter != nullptr ? std::move(formatter)
                                : std::make_shared<DefaultLabelFormatter>(param, 1);
}

DialDesign chaosDesign() {
    return {.frames = QStringLiteral("knobs/chaos-dial-grey_"),
            .imageCount = 51,
            .knobMinDrag = 6,
            .knobDragScaleFactor = 0.005F,
            .knobSize = {56, 64},
            .knobLift = 16,
            .axis = {28, 20.5},
            .reach = 20.5,
            .labelColor = QStringLiteral("pluginGrey"),
            .labelFont = FernFont::dosisMedium};
}

DialDesign mediumDesign(SmallDialColor color) {
    struct Names {
        const char* frames;
        const char* label;
    };
    static constexpr std::array<Names, 4> names{{{"blue", "pluginBlue"},
                                                 {"yellow", "pluginYellow"},
                                                 {"red", "pluginRed"},
                                                 {"purple", "pluginPurple"}}};
    const Names& name = names.at(static_cast<std::size_t>(color));
    return {.frames = QStringLiteral("knobs/dial-medium-%1-").arg(QLatin1String(name.frames)),
            .imageCount = 51,
            .knobMinDrag = 6,
            .knobDragScaleFactor = 0.005F,
            .knobSize = {68, 84},
            .knobLift = 16,
            .axis = {34, 28.5},
            .reach = 28.5,
            .labelColor = QLatin1String(name.label),
            .labelFont = FernFont::rocket};
}

DialDesign tinyDesign() {
    return {.frames = QStringLiteral("knobs/dial-small-grey-"),
            .imageCount = 51,
            .knobMinDrag = 3,
            .knobDragScaleFactor = 0.01F,
            .knobSize = {34, 40},
            .knobLift = 0,
            .axis = {17, 20},
            .reach = 17,
            .labelColor = QStringLiteral("tinyDialLabel"),
            .labelFont = FernFont::rocket};
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
      axis_(design.axis),
      reach_(design.reach),
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

KnobControl::FocusShape Dial::focusShape() const {
    const QPointF middle = knobRect_.topLeft() + QPointF(axis_.x, axis_.y);
    return {{middle - QPointF(reach_, reach_), QSizeF(2 * reach_, 2 * reach_)}, reach_};
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
    case QEvent::Wheel:
        if (isEditing()) {
            event->ignore(); // it would replace what is being typed; the page may scroll
            return false;
        }
        break;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress: {
        if (isEditing()) {
            // The field has not wanted it; the host may.
            event->ignore();
            return false;
        }
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
            event->accept();
            if (event->type() == QEvent::KeyPress && !heldKey_.isRepeat(key)) {
                openField();
            }
            return true;
        }
        break;
    }
    case QEvent::KeyRelease:
        static_cast<void>(heldKey_.isRepeat(*static_cast<QKeyEvent*>(event)));
        break;
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

ChaosDial::ChaosDial(std::shared_ptr<AudioParameter> param, ModernDialColor color,
                     const LabelDisplayOptions& labelDisplayOptions,
                     std::shared_ptr<const LabelFormatter> formatter,
                     std::function<void()> onEditingEnded, QWidget* parent)
    : Dial(std::move(param), chaosDesign(), labelDisplayOptions, std::move(formatter),
           std::move(onEditingEnded), parent),
      color_(color) {}

MediumDial::MediumDial(std::shared_ptr<AudioParameter> param, SmallDialColor color,
                       const LabelDisplayOptions& labelDisplayOptions,
                       std::shared_ptr<const LabelFormatter> formatter,
                       std::function<void()> onEditingEnded, QWidget* parent)
    : Dial(std::move(param), mediumDesign(color), labelDisplayOptions, std::move(formatter),
           std::move(onEditingEnded), parent),
      color_(color) {}

TinyDial::TinyDial(std::shared_ptr<AudioParameter> param,
                   const LabelDisplayOptions& labelDisplayOptions,
                   std::shared_ptr<const LabelFormatter> formatter,
                   std::function<void()> onEditingEnded, QWidget* parent)
    : Dial(std::move(param), tinyDesign(), labelDisplayOptions, std::move(formatter),
           std::move(onEditingEnded), parent) {}

} // namespace fernhorn
