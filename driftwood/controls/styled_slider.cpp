#include "driftwood/controls/styled_slider.hpp"

#include "driftwood/bridges/styled_class.hpp"
#include "driftwood/style/styles.hpp"
#include "platform/assets/asset_catalog.hpp"
#include "platform/controls/qt_input.hpp"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace driftwood {
namespace {

constexpr core::Size plainSize{100, 22}; // of a slider lying; stood up, the other way round
constexpr double circleSize = 48;
constexpr double ringWidth = 4;
constexpr double stepsOfPage = 10;

std::optional<core::Size> sizeOf(const Image& image) {
    return image ? std::optional(image->size()) : std::nullopt;
}

/// An image stood up: its left end comes below.
void paintUpright(const platform::CellCanvas& canvas, const core::Rect& rect,
                  const platform::ImageAsset& image, double opacity) {
    const qreal scale = canvas.painter.deviceTransform().m11();
    const QSizeF lain(rect.size.height, rect.size.width);
    QImage picture((lain * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) {
        return;
    }
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        platform::CellCanvas inner{painter, canvas.controlTextColor};
        platform::paintCellImage(inner, {{0, 0}, {lain.width(), lain.height()}}, image, opacity);
    }
    canvas.painter.drawImage(QPointF(rect.origin.x, rect.origin.y),
                             picture.transformed(QTransform().rotate(-90)));
}

} // namespace

SliderCellStyle& StyledSliderCell::style() {
    static SliderCellStyle& shared = []() -> SliderCellStyle& {
        auto& style = StyledClass<StyledSliderCell, SliderCellStyle>::style();
        style.setBackgroundColor(Styles::Control::background());
        return style;
    }();
    return shared;
}

SliderParts StyledSliderCell::parts(const core::Rect& bounds, bool isRightToLeft) const {
    const StyledControlState state = controlState();
    return {drawingRect(bounds), sizeOf(style().barImage(state)), sizeOf(style().knobImage(state)),
            kind_, isRightToLeft};
}

double StyledSliderCell::knobThickness() const {
    return driftwood::knobThickness(parts({}, false));
}

core::Rect StyledSliderCell::barRect(const core::Rect& bounds) const {
    return driftwood::barRect(parts(bounds, false));
}

core::Rect StyledSliderCell::knobRect(const core::Rect& bounds, bool isRightToLeft) const {
    return driftwood::knobRect(parts(bounds, isRightToLeft), place_);
}

core::Size StyledSliderCell::cellSize() const {
    switch (kind_) {
    case SliderKind::vertical:
        return {plainSize.height, plainSize.width};
    case SliderKind::circular:
        return {circleSize, circleSize};
    case SliderKind::horizontal:
        break;
    }
    return plainSize;
}

void StyledSliderCell::drawInterior(const core::Rect& frame,
                                    const platform::CellCanvas& canvas) const {
    const SliderParts all = parts(frame, canvas.isRightToLeft);
    drawBar(all, canvas);
    drawKnob(driftwood::knobRect(all, place_), canvas);
}

void StyledSliderCell::drawTrack(const core::Rect& rect, const Image& image,
                                 const platform::CellCanvas& canvas) const {
    const auto* const asset = toImageAsset(image);
    if (asset == nullptr || rect.size.width <= 0 || rect.size.height <= 0) {
        return;
    }
    if (isVertical()) {
        paintUpright(canvas, rect, *asset, opacity());
    } else {
        platform::paintCellImage(canvas, rect, *asset, opacity());
    }
}

void StyledSliderCell::drawRing(const core::Rect& bar, const platform::CellCanvas& canvas) const {
    constexpr int degree = 16; // the painter's unit
    constexpr int below = -90 * degree;
    QPainter& painter = canvas.painter;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setOpacity(painter.opacity() * opacity());
    QColor track = canvas.controlTextColor;
    track.setAlphaF(track.alphaF() * 0.2F);
    painter.setPen(QPen(track, ringWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawEllipse(platform::toQRectF(bar));
    painter.setPen(
        QPen(toQColor(style().selectedBackgroundColor()), ringWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(platform::toQRectF(bar), below,
                    -static_cast<int>(std::lround(place_ * 360 * degree)));
    painter.restore();
}

void StyledSliderCell::drawBar(const SliderParts& parts, const platform::CellCanvas& canvas) const {
    if (kind_ == SliderKind::circular) {
        drawRing(driftwood::barRect(parts), canvas);
        return;
    }
    // The table's `highlighted` is the filled part: a held knob does not fill the whole track.
    StyledControlState atRest = controlState();
    atRest.remove(StyledControlState::highlighted);
    drawTrack(driftwood::barRect(parts), style().barImage(atRest), canvas);
    drawTrack(filledRect(parts, place_), style().barImages().at(StyledControlState::highlighted),
              canvas);
}

void StyledSliderCell::drawKnob(const core::Rect& frame, const platform::CellCanvas& canvas) const {
    if (const auto* const image = toImageAsset(styleKnobImage(*this))) {
        platform::paintCellImage(canvas, frame, *image, opacity());
    }
}

StyledSlider::StyledSlider(SliderKind kind, QWidget* parent)
    : KitControl(std::make_unique<StyledSliderCell>(), parent) {
    setSliderType(kind);
    setAction(&StyledSlider::sliderValueChanged, *this);
}

StyledSlider::~StyledSlider() {
    endDrag();
}

void StyledSlider::setSliderType(SliderKind kind) {
    styledCell().setSliderType(kind);
    const bool isLying = kind == SliderKind::horizontal;
    const bool isUpright = kind == SliderKind::vertical;
    setSizePolicy(isLying ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                  isUpright ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    cellDidChange();
}

void StyledSlider::placeKnob() {
    const double place = range_.placeOf(value_);
    if (place != styledCell().place()) {
        styledCell().setPlace(place);
        update();
    }
}

void StyledSlider::setDoubleValue(double value) {
    if (!std::isnan(value)) {
        value_ = range_.clamped(value);
        placeKnob();
    }
}

void StyledSlider::setRange(double minimum, double maximum) {
    range_ = {minimum, maximum};
    setDoubleValue(value_);
}

void StyledSlider::sliderValueChanged(platform::Control& /*sender*/) {
    const platform::InputEvent* const event = platform::currentEvent();
    if (event == nullptr) {
        return;
    }
    // A copy: it may replace itself, or destroy the slider.
    const auto call = [this](Callback callback) {
        if (callback) {
            callback(value_);
        }
    };
    switch (event->kind) {
    case platform::EventKind::leftMouseDown:
        return call(onSlideStarted);
    case platform::EventKind::leftMouseDragged:
        return call(onSlideOngoing);
    case platform::EventKind::leftMouseUp:
        return call(onSlideComplete);
    default:
        return;
    }
}

core::Size StyledSlider::intrinsicContentSize() const {
    core::Size size = styledCell().cellSize();
    if (fixedWidth()) {
        const SliderParts all = styledCell().parts({}, false);
        size.width = std::max(*fixedWidth(), all.barImage.value_or(core::Size()).width);
        if (all.barImage && all.knobImage) {
            size.height = std::max(all.barImage->height, all.knobImage->height);
        }
    }
    return size;
}

SliderParts StyledSlider::parts() const {
    return styledCell().parts(bounds(), isRightToLeftSlider());
}

double StyledSlider::smallestStep() const {
    return keyStep_ > 0 ? keyStep_ : range_.length() / 100;
}

QString StyledSlider::valueText() const {
    return numberWithUnit(value_, unit_);
}

void StyledSlider::editValue(double value) {
    const double before = value_;
    setDoubleValue(value);
    if (value_ != before) {
        announceValue(*this);
        sendAction(); // may destroy the slider
    }
}

void StyledSlider::stepValue(double steps) {
    editValue(value_ + steps * smallestStep());
}

QAccessibleInterface* StyledSlider::makeAccessible() {
    return makeValueAccessible(*this);
}

void StyledSlider::dragTo(double place, bool isPress) {
    const double before = value_;
    // On the spot, the value stays as it is, to the last digit.
    if (place != styledCell().place()) {
        setDoubleValue(range_.valueAt(place));
    }
    if (value_ != before) {
        announceValue(*this);
    }
    if (isContinuous_ && (isPress || value_ != before)) {
        sendAction(); // may destroy the slider
    }
}

void StyledSlider::endDrag() {
    if (!drag_.end()) {
        return;
    }
    const QPointer<StyledSlider> self(this);
    setHighlighted(false, platform::HighlightOwner::press);
    if (self != nullptr) {
        // However it ends, it ends as a release does.
        const platform::EventDispatch release({platform::EventKind::leftMouseUp, {}});
        sendAction(); // may destroy the slider
    }
}

bool StyledSlider::takeMouse(QEvent& event) {
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    const core::Point at{mouse.position().x(), mouse.position().y()};
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        if (mouse.button() != Qt::LeftButton) {
            return drag_.isDragging();
        }
        if (drag_.isDragging()) { // its release went unheard
            const QPointer<StyledSlider> self(this);
            endDrag();
            if (self == nullptr) {
                return true;
            }
        }
        const double place = drag_.press(parts(), styledCell().place(), at);
        setHighlighted(true, platform::HighlightOwner::press);
        dragTo(place, true);
        return true;
    }
    case QEvent::MouseMove:
        if (!drag_.isDragging()) {
            return false;
        }
        if (mouse.buttons().testFlag(Qt::LeftButton)) {
            dragTo(drag_.move(parts(), at), false);
        } else {
            endDrag();
        }
        return true;
    case QEvent::MouseButtonRelease:
        if (mouse.button() != Qt::LeftButton || !drag_.isDragging()) {
            return false;
        }
        endDrag();
        return true;
    default:
        return false;
    }
}

bool StyledSlider::takeKey(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
        return false;
    }
    const bool isMirrored = isRightToLeftSlider() && sliderType() == SliderKind::horizontal;
    switch (event.key()) {
    case Qt::Key_Right:
    case Qt::Key_Left: {
        const bool isUp = (event.key() == Qt::Key_Right) != isMirrored;
        stepValue(isUp ? 1 : -1);
        return true;
    }
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
        editValue(range_.minimum);
        return true;
    case Qt::Key_End:
        editValue(range_.maximum);
        return true;
    default:
        return false;
    }
}

bool StyledSlider::handleEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        event->accept();
        if (isEnabled() && takeMouse(*event)) {
            return true;
        }
        break;
    case QEvent::KeyPress:
        if (isEnabled() && takeKey(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return CellControl::handleEvent(event);
}

bool StyledScrollableSlider::handleEvent(QEvent* event) {
    if (event->type() != QEvent::Wheel || !isEnabled()) {
        return StyledSlider::handleEvent(event);
    }
    event->accept();
    const platform::WheelTurn turn = platform::toWheelTurn(*static_cast<const QWheelEvent*>(event));
    const double before = doubleValue();
    setDoubleValue(
        scrolledValue(sliderType(), range(), before,
                      {platform::scrollingDelta(turn), turn.isInverted, isRightToLeftSlider()}));
    if (doubleValue() != before) {
        announceValue(*this);
    }
    sendAction(); // may destroy the slider
    return true;
}

} // namespace driftwood
