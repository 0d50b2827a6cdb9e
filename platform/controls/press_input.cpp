#include "platform/controls/press_input.hpp"

#include <QKeyEvent>
#include <QMouseEvent>

namespace platform {
namespace {

core::Point pointOf(const QMouseEvent& event) {
    return {event.position().x(), event.position().y()};
}

} // namespace

bool isPressKey(int key) {
    return key == Qt::Key_Space || key == Qt::Key_Select || key == Qt::Key_Return ||
           key == Qt::Key_Enter;
}

bool endsTracking(const QEvent& event, bool isByKey) {
    switch (event.type()) {
    case QEvent::FocusOut:
        return isByKey || static_cast<const QFocusEvent&>(event).reason() != Qt::PopupFocusReason;
    case QEvent::EnabledChange:
    case QEvent::Hide:
    case QEvent::UngrabMouse:
    case QEvent::WindowDeactivate:
        return true;
    default:
        return false;
    }
}

PressAnswer PressInput::takeKey(const QKeyEvent& event, Qt::KeyboardModifiers allowed) {
    const bool isDown = event.type() == QEvent::KeyPress;
    if (event.key() == Qt::Key_Escape && isDown && press_.isTracking()) {
        return {press_.cancel(), true};
    }
    if (!isPressKey(event.key())) {
        return {};
    }
    constexpr Qt::KeyboardModifiers foreign =
        Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const bool isShortcut = (event.modifiers() & foreign & ~allowed) != 0;
    if (heldKey_.isRepeat(event)) {
        return {PressStep::none, press_.isTracking() || !isShortcut};
    }
    if (isDown) {
        return isShortcut ? PressAnswer{} : PressAnswer{press_.pressKey(event.key()), true};
    }
    const PressStep step = press_.releaseKey(event.key());
    return {step, step != PressStep::none || !isShortcut};
}

PressAnswer PressInput::take(const QEvent& event, const core::Rect& bounds,
                             Qt::KeyboardModifiers allowed) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        return mouse.button() == Qt::LeftButton
                   ? PressAnswer{press_.press(pointOf(mouse), bounds), true}
                   : PressAnswer{};
    }
    case QEvent::MouseMove: {
        const bool isTracking = press_.isTracking();
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        return {press_.move(pointOf(mouse), bounds, mouse.buttons().testFlag(Qt::LeftButton)),
                isTracking};
    }
    case QEvent::MouseButtonRelease: {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        return mouse.button() == Qt::LeftButton
                   ? PressAnswer{press_.release(pointOf(mouse), bounds), true}
                   : PressAnswer{};
    }
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return takeKey(static_cast<const QKeyEvent&>(event), allowed);
    default:
        return {endsTracking(event, press_.isByKey()) ? press_.cancel() : PressStep::none, false};
    }
}

} // namespace platform
