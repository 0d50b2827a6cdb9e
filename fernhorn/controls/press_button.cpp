#include "fernhorn/controls/press_button.hpp"

#include "core/fatal.hpp"
#include "fernhorn/controls/press_button_accessible.hpp"
#include "platform/ui/focus_ring.hpp"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QThread>
#include <QTimer>

#include <cmath>

namespace fernhorn {
namespace {

constexpr int momentOfPress = 100; // ms that a press by a program is seen
constexpr int noKey = -1;          // what it is pressed with

core::Point pointOf(const QMouseEvent& event) {
    return {event.position().x(), event.position().y()};
}

core::Size toSize(QSizeF size) {
    return {size.width(), size.height()};
}

} // namespace

PressButton::PressButton(ButtonFace face, QSizeF buttonSize, QWidget* parent)
    : QWidget(parent), face_(std::move(face)), buttonSize_(buttonSize) {
    installPressButtonAccessibility();
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true); // to notice that the mouse button is up without having been released
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    resize(PressButton::sizeHint());
}

QSize PressButton::sizeHint() const {
    return {static_cast<int>(std::ceil(buttonSize_.width())),
            static_cast<int>(std::ceil(buttonSize_.height()))};
}

void PressButton::follow(PressStep step) {
    if (QThread::currentThread() != thread()) {
        core::fatal("A button is pressed on another thread than the main thread");
    }
    if (step == PressStep::none) {
        return;
    }
    update();
    announcePressed(*this);
    pressDidStep(step);
}

void PressButton::performClick() {
    if (!isEnabled()) {
        return;
    }
    QTimer::singleShot(momentOfPress, this, [this] { follow(press_.releaseKey(noKey)); });
    follow(press_.pressKey(noKey));
}

void PressButton::clickAtOnce() {
    const QPointer<PressButton> self(this);
    follow(press_.pressKey(noKey));
    if (self != nullptr) {
        follow(press_.releaseKey(noKey));
    }
}

void PressButton::announceOn() {
    fernhorn::announceOn(*this);
}

bool PressButton::pressOrReleaseKey(const QKeyEvent& event) {
    const bool isDown = event.type() == QEvent::KeyPress;
    switch (event.key()) {
    case Qt::Key_Space:
    case Qt::Key_Select:
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        Qt::KeyboardModifiers foreign = Qt::ControlModifier | Qt::MetaModifier;
        foreign.setFlag(Qt::AltModifier, !takesOptionKey());
        if (event.isAutoRepeat()) {
            return isPressed();
        }
        if (!isDown) {
            follow(press_.releaseKey(event.key()));
            return true;
        }
        if (event.modifiers() & foreign) {
            return false; // a shortcut of someone else
        }
        follow(press_.pressKey(event.key()));
        return true;
    }
    case Qt::Key_Escape:
        if (isDown && isPressed()) {
            follow(press_.cancel());
            return true;
        }
        return false;
    default:
        return isDown && handleKey(event);
    }
}

bool PressButton::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        if (mouse.button() != Qt::LeftButton) {
            break; // the views behind may want it
        }
        event->accept();
        if (isEnabled()) {
            follow(press_.press(pointOf(mouse), toSize(buttonSize_)));
        }
        return true;
    }
    case QEvent::MouseMove:
        if (!isPressed()) {
            break;
        }
        event->accept();
        follow(
            press_.moveMouse(static_cast<QMouseEvent*>(event)->buttons().testFlag(Qt::LeftButton)));
        return true;
    case QEvent::MouseButtonRelease: {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        if (mouse.button() != Qt::LeftButton) {
            break;
        }
        event->accept();
        follow(press_.release(pointOf(mouse), toSize(buttonSize_)));
        return true;
    }
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (isEnabled() && pressOrReleaseKey(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        showsFocus_ =
            platform::showsFocusAfter(static_cast<QFocusEvent*>(event)->reason(), showsFocus_);
        update();
        [[fallthrough]];
    case QEvent::Hide:
    case QEvent::UngrabMouse:
    case QEvent::WindowDeactivate: {
        const bool isDealtWith = QWidget::event(event);
        if (event->type() != QEvent::FocusIn) {
            follow(press_.cancel());
        }
        return isDealtWith;
    }
    default:
        break;
    }
    return QWidget::event(event);
}

void PressButton::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        follow(press_.cancel()); // may destroy the button
    }
}

void PressButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintContent(painter, {isOn(), isPressed(), isEnabled()});
    if (showsFocus_ && hasFocus()) {
        platform::paintFocusRing(painter, QRectF({}, buttonSize_), 5, palette());
    }
}

void PressButton::paintContent(QPainter& painter, const ButtonState& state) {
    paintButtonFace(painter, QRectF({}, buttonSize_), face_, state, captionLayout_);
}

} // namespace fernhorn
