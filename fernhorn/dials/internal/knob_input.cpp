#include "fernhorn/dials/internal/knob_input.hpp"

#include "fernhorn/dials/knob_gestures.hpp"
#include "platform/controls/qt_input.hpp"

#include <QAbstractScrollArea>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScreen>
#include <QTimerEvent>
#include <QToolTip>
#include <QWheelEvent>
#include <QWidget>

#include <chrono>
#include <utility>

namespace fernhorn {
namespace {

core::Point pointOf(QPointF point) {
    return {point.x(), point.y()};
}

bool isFine(const QInputEvent& event) {
    return event.modifiers().testFlag(Qt::ShiftModifier);
}

bool isInScrollArea(const QWidget& view) {
    const QWidget* above = &view;
    while (!above->isWindow() && above->parentWidget() != nullptr) {
        above = above->parentWidget();
        if (qobject_cast<const QAbstractScrollArea*>(above) != nullptr) {
            return true;
        }
    }
    return false;
}

/// Where a pointer cannot be put back it stays visible: hidden, it would turn up somewhere else.
bool canHidePointer() {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

/// There is a pointer, it can be put back, and it is where the event says.
bool canHoldPointer(QPointF seenAt) {
    static const bool hasPointer = [] {
        const QString name = QGuiApplication::platformName();
        return name == QLatin1String("xcb") || name == QLatin1String("windows") ||
               name == QLatin1String("cocoa");
    }();
    return hasPointer && (QPointF(QCursor::pos()) - seenAt).manhattanLength() < 3;
}

void putPointer(core::Point at) {
    QCursor::setPos(QPointF(at.x, at.y).toPoint());
}

std::optional<ParameterStep> stepOf(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
        return std::nullopt;
    }
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Right:
        return ParameterStep::up;
    case Qt::Key_Down:
    case Qt::Key_Left:
        return ParameterStep::down;
    case Qt::Key_PageUp:
        return ParameterStep::pageUp;
    case Qt::Key_PageDown:
        return ParameterStep::pageDown;
    case Qt::Key_Home:
        return ParameterStep::toLowest;
    case Qt::Key_End:
        return ParameterStep::toHighest;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        return ParameterStep::toDefault;
    default:
        return std::nullopt;
    }
}

} // namespace

KnobInput::KnobInput(QWidget& view, std::shared_ptr<AudioParameter> parameter, KnobFeel feel,
                     std::function<QString()> readOut)
    : view_(view),
      parameter_(std::move(parameter)),
      readOut_(std::move(readOut)),
      drag_(parameter_, feel),
      wheel_(parameter_) {}

KnobInput::~KnobInput() {
    if (hasPointer_) {
        QToolTip::hideText();
    }
}

bool KnobInput::handle(QEvent& event, KnobClick click) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return view_.isEnabled() && press(static_cast<QMouseEvent&>(event), click);
    case QEvent::MouseMove:
        return move(static_cast<QMouseEvent&>(event));
    case QEvent::MouseButtonRelease:
        return release(static_cast<QMouseEvent&>(event));
    case QEvent::Wheel:
        return view_.isEnabled() && turn(static_cast<QWheelEvent&>(event));
    case QEvent::ShortcutOverride:
        return view_.isEnabled() && stepOf(static_cast<QKeyEvent&>(event)).has_value();
    case QEvent::KeyPress:
        return view_.isEnabled() && key(static_cast<QKeyEvent&>(event));
    case QEvent::Enter:
        wheel_.pointerCame(core::Clock::system().now());
        return false;
    case QEvent::Leave:
        wheel_.pointerLeft();
        return false;
    case QEvent::Timer:
        if (static_cast<QTimerEvent&>(event).timerId() == burst_.timerId()) {
            const QPointer<QWidget> view(&view_);
            burst_.stop();
            wheel_.closeWhenDue(core::Clock::system().now());
            if (view != nullptr) {
                followBurst();
            }
            return true;
        }
        return false;
    case QEvent::EnabledChange:
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::UngrabMouse:
    case QEvent::WindowBlocked:
    case QEvent::WindowDeactivate:
        cancel();
        return false;
    default:
        return false;
    }
}

void KnobInput::valueDidChange() {
    if (hasPointer_) {
        showReadOut();
    }
}

void KnobInput::cancel() {
    const QPointer<QWidget> view(&view_);
    givePointerBack();
    burst_.stop();
    wheel_.close();
    if (view != nullptr) {
        drag_.cancel();
    }
}

bool KnobInput::press(const QMouseEvent& event, KnobClick click) {
    if (event.button() != Qt::LeftButton) {
        return drag_.isPressed(); // another button, in the midst of a press
    }
    const QPointer<QWidget> view(&view_);
    cancel(); // the wheel's burst, or a press whose release went elsewhere
    if (view != nullptr) {
        const bool resets = click == KnobClick::resets;
        view_.setMouseTracking(true); // to notice when the release goes elsewhere
        drag_.press(pointOf(event.position()),
                    resets && event.type() == QEvent::MouseButtonDblClick ? 2 : 1,
                    resets && event.modifiers().testFlag(Qt::AltModifier));
        if (view != nullptr && drag_.isDragging()) {
            takePointer(event);
        }
    }
    return true;
}

bool KnobInput::move(const QMouseEvent& event) {
    if (!drag_.isPressed()) {
        return false;
    }
    if (!event.buttons().testFlag(Qt::LeftButton)) {
        cancel();
        return true;
    }
    const PointerHold::Move moved = hold_.move(pointOf(event.globalPosition()));
    if (moved.putBack) {
        putPointer(hold_.home());
    }
    const QPointF unheld = QPointF(moved.position.x, moved.position.y) - event.globalPosition();
    const QPointer<QWidget> view(&view_);
    drag_.move(pointOf(event.position() + unheld), isFine(event));
    if (view != nullptr && drag_.isDragging() && !hasPointer_) {
        takePointer(event);
    }
    return true;
}

bool KnobInput::release(const QMouseEvent& event) {
    if (!drag_.isPressed()) {
        return false;
    }
    if (event.button() == Qt::LeftButton) {
        givePointerBack();
        drag_.release(pointOf(event.position()));
    }
    return true;
}

bool KnobInput::turn(const QWheelEvent& event) {
    if (drag_.isPressed()) {
        return true; // one thing at a time
    }
    const platform::WheelTurn turned = platform::toWheelTurn(event);
    const QPointer<QWidget> view(&view_);
    const bool isTaken = wheel_.turn(core::Clock::system().now(),
                                     static_cast<float>(platform::notchesByHand(turned)),
                                     isFine(event), isInScrollArea(view_));
    if (view != nullptr) {
        followBurst();
    }
    return isTaken;
}

bool KnobInput::key(const QKeyEvent& event) {
    const auto step = stepOf(event);
    if (!step) {
        return false;
    }
    if (!drag_.isPressed()) {
        const QPointer<QWidget> view(&view_);
        burst_.stop();
        wheel_.close();
        if (view != nullptr) {
            stepParameter(std::shared_ptr(parameter_), *step, isFine(event));
        }
    }
    return true;
}

void KnobInput::followBurst() {
    if (const auto closesAt = wheel_.closesAt()) {
        if (!burst_.isActive()) {
            const auto left = *closesAt - core::Clock::system().now();
            burst_.start(
                static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(left).count()),
                &view_);
        }
    }
}

void KnobInput::takePointer(const QMouseEvent& event) {
    hasPointer_ = true;
    if (canHidePointer()) {
        cursorBefore_ =
            view_.testAttribute(Qt::WA_SetCursor) ? std::optional(view_.cursor()) : std::nullopt;
        view_.setCursor(Qt::BlankCursor);
    }
    if (canHoldPointer(event.globalPosition())) {
        const QRectF screen = view_.screen()->geometry();
        hold_.begin(pointOf(event.globalPosition()),
                    {{screen.x(), screen.y()}, {screen.width(), screen.height()}});
    }
    showReadOut();
}

void KnobInput::givePointerBack() {
    view_.setMouseTracking(false);
    if (std::exchange(hasPointer_, false)) {
        if (hold_.isHolding()) {
            putPointer(hold_.beginning());
            hold_.end();
        }
        if (cursorBefore_) {
            view_.setCursor(*cursorBefore_);
        } else {
            view_.unsetCursor();
        }
        QToolTip::hideText();
    }
}

void KnobInput::showReadOut() const {
    if (const QString text = readOut_(); !text.isEmpty()) {
        QToolTip::showText(view_.mapToGlobal(QPoint(view_.width(), 0)), text, &view_);
    }
}

} // namespace fernhorn
