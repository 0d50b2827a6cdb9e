#include "platform/controls/abstract_button.hpp"

#include "platform/controls/focus_ring.hpp"
#include "platform/controls/main_thread.hpp"

#include <QKeyEvent>
#include <QPointer>

namespace platform {

bool AbstractButton::event(QEvent* event) {
    checkMainThread();
    if (event->type() == QEvent::Polish) {
        setMouseTracking(true); // to notice that the mouse button is up unheard
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        showsFocus_ = showsFocusAfter(static_cast<QFocusEvent*>(event)->reason(), showsFocus_);
        update();
    }
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    const bool isForNobody =
        event->isInputEvent() && !isEnabled() && (isKey || !yieldsWhileDisabled());
    if (isForNobody) {
        return QAbstractButton::event(event);
    }
    const QSizeF size = QSizeF(this->size());
    const PressAnswer answer = input_.take(*event, {{}, {size.width(), size.height()}});
    if (answer.step != PressStep::none) {
        setDown(input_.press().isInside());
    }
    const QPointer<AbstractButton> self(this);
    if (answer.step == PressStep::clicked) {
        click(); // not when it is disabled; it may destroy the button
    }
    if (answer.isTaken) {
        event->accept();
        return true;
    }
    if (isKey && isPressKey(static_cast<QKeyEvent*>(event)->key())) {
        event->ignore(); // somebody's shortcut; the toolkit's own button would click
        return false;
    }
    return self != nullptr && QAbstractButton::event(event);
}

} // namespace platform
