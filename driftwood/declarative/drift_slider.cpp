#include "driftwood/declarative/drift_slider.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "platform/assets/asset_catalog.hpp"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace driftwood {
namespace {

constexpr int rowPadding = 2;
constexpr int beyondRow = 2; // of the well, at both sides
constexpr int buttonWidth = 20;
constexpr int smallestTrack = 48;
constexpr double stepsOfPage = 10;

const platform::ImageAsset* kitImageNamed(const char* name) {
    return resourceBundle().assets().image(QString::fromLatin1(name));
}

struct SliderImages {
    const platform::ImageAsset* well = kitImageNamed("dwk-textfield");
    const platform::ImageAsset* filling = kitImageNamed("dwk-customslider-on");
    const platform::ImageAsset* knob = kitImageNamed("dwk-customslider-handle");
    const platform::ImageAsset* heldKnob = kitImageNamed("dwk-customslider-handle-down");
};

const SliderImages& sliderImages() {
    static const SliderImages images;
    return images;
}

void paintPart(const platform::CellCanvas& canvas, const core::Rect& rect,
               const platform::ImageAsset* image, double opacity) {
    if (image != nullptr && opacity > 0) {
        platform::paintCellImage(canvas, rect, *image, opacity);
    }
}

} // namespace

void DriftSliderCell::drawInterior(const core::Rect& frame,
                                   const platform::CellCanvas& canvas) const {
    using namespace drift_slider;
    const auto parts = trackParts(*model, frame.size.width);
    if (!parts) {
        return;
    }
    const double opacity = cellState().isEnabled ? 1 : 0.5;
    const double top = frame.origin.y + knobYPosition - knobReach;
    const auto place = [&](double x, double width) -> core::Rect {
        const double left = canvas.isRightToLeft ? frame.maxX() - x - width : frame.origin.x + x;
        return {{left, top}, {width, knobSize}};
    };
    if (parts->fillWidth > 0) {
        paintPart(canvas, place(0, parts->fillWidth), sliderImages().filling, opacity);
    }
    for (const auto& extra : parts->extraKnobs) {
        if (extra) {
            paintPart(canvas, place(*extra - knobReach, knobSize), sliderImages().knob,
                      opacity * mixedKnobOpacity);
        }
    }
    paintPart(canvas, place(parts->knobX - knobReach, knobSize),
              isDragging ? sliderImages().heldKnob : sliderImages().knob,
              opacity * parts->knobOpacity);
}

DriftSliderTrack::DriftSliderTrack(std::shared_ptr<DriftSliderModel> model, QWidget* parent)
    : CellControl(std::make_unique<DriftSliderCell>(), parent) {
    setMinimumWidth(smallestTrack);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setModel(std::move(model));
}

DriftSliderTrack::~DriftSliderTrack() {
    changes_ = {}; // there is nobody left to repaint
    if (drag_->isDragging()) {
        drag_->end();
    }
}

void DriftSliderTrack::setModel(std::shared_ptr<DriftSliderModel> model) {
    if (drag_ != nullptr) {
        const QPointer<DriftSliderTrack> self(this);
        endDrag();
        if (self == nullptr) {
            return; // who was told has destroyed it
        }
    }
    model_ = std::move(model);
    drag_ = std::make_unique<DriftSliderDrag>(model_);
    sliderCell().model = model_;
    changes_ = model_->value.observe([this](const std::optional<double>&) {
        update();
        announceValue(*this);
    });
    update();
}

void DriftSliderTrack::setDragging(bool isDragging) {
    if (sliderCell().isDragging != isDragging) {
        sliderCell().isDragging = isDragging;
        update();
    }
}

void DriftSliderTrack::endDrag() {
    setDragging(false);
    isResetting_ = false;
    drag_->end(); // whoever is told may destroy the track
}

void DriftSliderTrack::cancelTracking() {
    endDrag();
}

bool DriftSliderTrack::takeMouse(const QMouseEvent& event) {
    const double x = isRightToLeft() ? width() - event.position().x() : event.position().x();
    const core::Point at{x, event.position().y()};
    const bool snaps = event.modifiers().testFlag(Qt::ShiftModifier);
    const double room = width();
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (event.button() != Qt::LeftButton || drag_->isDragging() || isResetting_) {
            return event.button() == Qt::LeftButton;
        }
        pressedAt_ = x;
        isResetting_ = event.modifiers().testFlag(Qt::AltModifier);
        if (!isResetting_) {
            setDragging(true);
            drag_->move(at, 0, room, snaps);
        }
        return true;
    case QEvent::MouseMove:
        if (!drag_->isDragging() && !isResetting_) {
            return false;
        }
        if (!event.buttons().testFlag(Qt::LeftButton)) {
            endDrag(); // its release went unheard
        } else if (drag_->isDragging()) {
            drag_->move(at, x - pressedAt_, room, snaps);
        }
        return true;
    case QEvent::MouseButtonRelease:
        if (event.button() != Qt::LeftButton) {
            return false;
        }
        if (std::exchange(isResetting_, false)) {
            if (rect().contains(event.position().toPoint())) {
                const auto model = model_; // whoever is told may destroy the track
                model->resetToDefaultValue();
            }
            return true;
        }
        if (drag_->isDragging()) {
            endDrag();
            return true;
        }
        return false;
    default:
        return false;
    }
}

bool DriftSliderTrack::takeKey(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
        return false;
    }
    const double right = isRightToLeft() ? -1 : 1;
    const auto model = model_; // whoever is told may destroy the track
    switch (event.key()) {
    case Qt::Key_Right:
    case Qt::Key_Left:
        stepValue(event.key() == Qt::Key_Right ? right : -right);
        return true;
    case Qt::Key_Up:
        stepValue(1);
        return true;
    case Qt::Key_Down:
        stepValue(-1);
        return true;
    case Qt::Key_PageUp:
        stepValue(stepsOfPage);
        return true;
    case Qt::Key_PageDown:
        stepValue(-stepsOfPage);
        return true;
    case Qt::Key_Home:
        model->finish(model->minimumValue);
        return true;
    case Qt::Key_End:
        model->finish(model->maximumValue);
        return true;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        model->resetToDefaultValue();
        return true;
    default:
        return false;
    }
}

bool DriftSliderTrack::handleEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        event->accept();
        if (isEnabled() && takeMouse(*static_cast<QMouseEvent*>(event))) {
            return true;
        }
        break;
    case QEvent::KeyPress:
        if (isEnabled() && !drag_->isDragging() && takeKey(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return CellControl::handleEvent(event);
}

QAccessibleInterface* DriftSliderTrack::makeAccessible() {
    return makeValueAccessible(*this);
}

std::optional<double> DriftSliderTrack::spokenValue() const {
    return model_->value.value();
}

QString DriftSliderTrack::valueText() const {
    //: for screen readers: the value of several objects that have different ones
    return spokenValue() ? numberWithUnit(*spokenValue(), unit_) : tr("Mixed");
}

void DriftSliderTrack::editValue(double value) {
    if (!drag_->isDragging()) {
        const auto model = model_;
        model->finish(value);
    }
}

void DriftSliderTrack::stepValue(double steps) {
    if (!drag_->isDragging()) {
        const auto model = model_;
        model->step(steps);
    }
}

DriftSlider::DriftSlider(std::shared_ptr<DriftSliderModel> model,
                         const platform::ImageAsset* leftImage,
                         const platform::ImageAsset* rightImage, QWidget* parent)
    : QWidget(parent),
      left_(new ClickableImageView(leftImage, this)),
      track_(new DriftSliderTrack(std::move(model), this)),
      right_(new ClickableImageView(rightImage, this)) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(rowPadding + beyondRow, 0, rowPadding + beyondRow, 0);
    row->setSpacing(0);
    for (ClickableImageView* const button : {left_, right_}) {
        button->setFixedSize(buttonWidth, static_cast<int>(drift_slider::rowHeight));
    }
    row->addWidget(left_);
    row->addWidget(track_, 1);
    row->addWidget(right_);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(static_cast<int>(drift_slider::rowHeight));
    setFocusProxy(track_);
    leftClicks_ = left_->clicked().subscribe([track = track_](const Click&) {
        const auto clicked = track->model(); // whoever is told may destroy the slider
        clicked->leftIconClicked();
    });
    rightClicks_ = right_->clicked().subscribe([track = track_](const Click&) {
        const auto clicked = track->model();
        clicked->rightIconClicked();
    });
    nameButtons();
}

void DriftSlider::setModel(std::shared_ptr<DriftSliderModel> model) {
    const QPointer<DriftSlider> self(this);
    track_->setModel(std::move(model));
    if (self != nullptr) {
        nameButtons();
    }
}

void DriftSlider::setValueName(const QString& name, const QString& unit) {
    name_ = name;
    track_->setAccessibleName(name);
    track_->setUnit(unit);
    nameButtons();
}

void DriftSlider::nameButtons() {
    const bool steps = model()->iconClickBehaviour == SliderIconClickBehaviour::increment;
    //: for screen readers: the buttons at the ends of a slider
    left_->setAccessibleName(steps ? tr("Decrease %1").arg(name_) : tr("Minimum %1").arg(name_));
    right_->setAccessibleName(steps ? tr("Increase %1").arg(name_) : tr("Maximum %1").arg(name_));
}

void DriftSlider::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        update();
    }
}

void DriftSlider::paintEvent(QPaintEvent* /*event*/) {
    if (sliderImages().well != nullptr) {
        QPainter painter(this);
        platform::paintCellImage({painter, palette().color(QPalette::ButtonText)},
                                 platform::toRect(QRectF(rect())), *sliderImages().well,
                                 isEnabled() ? 1 : 0.5);
    }
}

} // namespace driftwood
