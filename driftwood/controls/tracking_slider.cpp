#include "driftwood/controls/tracking_slider.hpp"

#include "core/clock.hpp"
#include "core/fatal.hpp"
#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/util/control_publisher.hpp"
#include "platform/controls/qt_input.hpp"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <cmath>

namespace driftwood {
namespace {

using platform::PanState;

constexpr double incrementsOfPage = 10;

const platform::ImageAsset& trackingCursorImage() {
    const auto* const image =
        resourceBundle().assets().image(QStringLiteral("cursor-trackingslider"));
    if (image == nullptr) {
        core::fatal("unable to find image named cursor-trackingslider");
    }
    return *image;
}

core::Instant timeOf(const QInputEvent& event) {
    const auto stamp = std::chrono::milliseconds(static_cast<std::int64_t>(event.timestamp()));
    return event.timestamp() != 0 ? core::Instant(core::Seconds(stamp))
                                  : core::Clock::system().now();
}

} // namespace

TrackingSlider::TrackingSlider(const platform::ImageAsset* image, QWidget* parent)
    : ClickableImageView(image, parent), cursor_(*this, trackingCursorImage(), QPoint(3, 4)) {}

TrackingSlider::~TrackingSlider() {
    cancelTracking();
    if (values_ != nullptr) {
        values_->finish();
    }
}

void TrackingSlider::setRange(double minimum, double maximum) {
    value_.minimumValue = minimum;
    value_.maximumValue = maximum;
    setDoubleValue(doubleValue());
}

void TrackingSlider::setDoubleValue(double value) {
    value_.setDoubleValue(value);
}

core::Stream<double>& TrackingSlider::doubleValuePublisher() {
    if (values_ == nullptr) {
        values_ = std::make_shared<core::Subject<double>>();
        events_ = controlEventPublisher(*this).subject().subscribe(
            [values = values_](TrackingSlider* sender) { values->send(sender->doubleValue()); },
            [values = values_] { values->finish(); });
    }
    return *values_;
}

QString TrackingSlider::valueText() const {
    return numberWithUnit(doubleValue(), unit_);
}

void TrackingSlider::editValue(double value) {
    const double before = doubleValue();
    setDoubleValue(value);
    if (doubleValue() != before) {
        value_.valueWasEdited = true;
        announceValue(*this);
        sendAction(); // may destroy the slider
    }
}

void TrackingSlider::stepValue(double steps) {
    editValue(doubleValue() + steps * incrementBy());
}

QAccessibleInterface* TrackingSlider::makeAccessible() {
    return makeValueAccessible(*this);
}

void TrackingSlider::step(double amount, bool sendsAction) {
    if (!value_.step(amount)) {
        return;
    }
    announceValue(*this);
    if (sendsAction) {
        sendAction(); // may destroy the slider
    }
}

void TrackingSlider::centreTranslation() {
    pan_.setTranslation(core::midPoint(bounds()));
}

void TrackingSlider::handlePan(PanState state) {
    const QPointer<TrackingSlider> self(this);
    // A copy: it may replace itself, or destroy the slider.
    const auto call = [this](Callback callback) {
        if (callback) {
            callback(doubleValue());
        }
    };
    switch (state) {
    case PanState::began:
        value_.valueWasEdited = false;
        centreTranslation();
        handleClickGesture();
        if (self != nullptr) {
            call(onSlideStarted);
        }
        return;
    case PanState::changed: {
        const core::Point velocity = pan_.velocity();
        const double along = horizontalDirection() ? velocity.x : -velocity.y; // upwards is more
        if (std::abs(along) > minimumPanVelocity()) {
            step(along, isContinuous_);
        }
        return;
    }
    case PanState::ended:
        sendAction();
        if (self != nullptr) {
            call(onSlideComplete);
        }
        return;
    case PanState::cancelled:
    case PanState::failed:
        value_.valueWasEdited = false;
        centreTranslation();
        handleClickGesture();
        return;
    case PanState::possible:
        return;
    }
}

void TrackingSlider::cancelTracking() {
    ClickableImageView::cancelTracking(); // a key's press
    if (pan_.isPressed()) {
        const PanState state = pan_.cancel();
        setAlphaValue(1);
        handlePan(state);
    }
}

bool TrackingSlider::takeMouse(const QMouseEvent& event) {
    const core::Point at{event.position().x(), event.position().y()};
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (event.button() == Qt::LeftButton && !pan_.isPressed()) {
            pan_.press(at, timeOf(event));
            setAlphaValue(0.5);
        }
        return event.button() == Qt::LeftButton;
    case QEvent::MouseMove:
        if (!pan_.isPressed()) {
            return false;
        }
        if (!event.buttons().testFlag(Qt::LeftButton)) {
            cancelTracking(); // the release went unheard
        } else {
            handlePan(pan_.move(at, timeOf(event)));
        }
        return true;
    case QEvent::MouseButtonRelease:
        if (event.button() != Qt::LeftButton || !pan_.isPressed()) {
            return false;
        }
        setAlphaValue(1);
        handlePan(pan_.release(at, timeOf(event)));
        return true;
    default:
        return false;
    }
}

bool TrackingSlider::takeKey(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
        return false;
    }
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Right:
        stepValue(1);
        return true;
    case Qt::Key_Down:
    case Qt::Key_Left:
        stepValue(-1);
        return true;
    case Qt::Key_PageUp:
        stepValue(incrementsOfPage);
        return true;
    case Qt::Key_PageDown:
        stepValue(-incrementsOfPage);
        return true;
    case Qt::Key_Home:
        editValue(minimumValue());
        return true;
    case Qt::Key_End:
        editValue(maximumValue());
        return true;
    default:
        return false;
    }
}

bool TrackingSlider::handleEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        if (isEnabled() && takeMouse(*static_cast<QMouseEvent*>(event))) {
            event->accept();
            return true;
        }
        return CellControl::handleEvent(event);
    case QEvent::KeyPress:
        if (isEnabled() && takeKey(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        break;
    case QEvent::Wheel: {
        event->ignore(); // the views behind hear of it as well
        const auto& wheel = *static_cast<const QWheelEvent*>(event);
        const platform::WheelTurn turn = platform::toWheelTurn(wheel);
        const core::Point delta = platform::scrollingDelta(turn);
        if (isEnabled()) {
            // Sideways it always goes as the system says; only upwards follows the hand.
            step(horizontalDirection() ? delta.x : turn.isInverted ? -delta.y : delta.y, true);
        }
        return true;
    }
    default:
        break;
    }
    return ClickableImageView::handleEvent(event);
}

} // namespace driftwood
