#include "platform/controls/qt_input.hpp"

#include <QMouseEvent>
#include <QWheelEvent>

namespace platform {
namespace {

EventKind kindOf(const QEvent& event) {
    const auto isLeft = [&] {
        return static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
    };
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return isLeft() ? EventKind::leftMouseDown : EventKind::otherMouseDown;
    case QEvent::MouseButtonRelease:
        return isLeft() ? EventKind::leftMouseUp : EventKind::otherMouseUp;
    case QEvent::MouseMove:
        return static_cast<const QMouseEvent&>(event).buttons().testFlag(Qt::LeftButton)
                   ? EventKind::leftMouseDragged
                   : EventKind::mouseMoved;
    case QEvent::Wheel:
        return EventKind::scrollWheel;
    case QEvent::KeyPress:
        return EventKind::keyDown;
    case QEvent::KeyRelease:
        return EventKind::keyUp;
    default:
        return EventKind::other;
    }
}

} // namespace

EventModifiers toEventModifiers(Qt::KeyboardModifiers modifiers) {
#ifdef Q_OS_MACOS
    constexpr auto control = Qt::MetaModifier; // Qt calls Command "Control" there
    constexpr auto command = Qt::ControlModifier;
#else
    constexpr auto control = Qt::ControlModifier;
    constexpr auto command = Qt::MetaModifier;
#endif
    return {modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(control),
            modifiers.testFlag(Qt::AltModifier), modifiers.testFlag(command)};
}

InputEvent toInputEvent(const QEvent& event) {
    if (!event.isInputEvent()) {
        return {};
    }
    return {kindOf(event), toEventModifiers(static_cast<const QInputEvent&>(event).modifiers())};
}

WheelTurn toWheelTurn(const QWheelEvent& event) {
    const QPoint angle = event.angleDelta();
    return {{static_cast<double>(angle.x()), static_cast<double>(angle.y())},
            event.inverted(),
            event.phase() == Qt::ScrollMomentum};
}

} // namespace platform
