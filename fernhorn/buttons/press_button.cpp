#include "fernhorn/buttons/press_button.hpp"

#include "fernhorn/buttons/internal/press_button_accessible.hpp"
#include "platform/controls/accessible_factory.hpp"
#include "platform/controls/focus_ring.hpp"
#include "platform/controls/main_thread.hpp"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTimer>

#include <cmath>

namespace fernhorn {

using platform::programKey;

PressButton::PressButton(ButtonFace face, QSizeF buttonSize, QWidget* parent)
    : QWidget(parent), face_(std::move(face)), buttonSize_(buttonSize) {
    platform::installAccessible<PressButton>();
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true); // to notice that the mouse button is up without having been released
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    resize(PressButton::sizeHint());
}

QSize PressButton::sizeHint() const {
    return {static_cast<int>(std::ceil(buttonSize_.width())),
            static_cast<int>(std::ceil(buttonSize_.height()))};
}

QAccessibleInterface* PressButton::makeAccessible() {
    return makePressButtonAccessible(*this);
}

void PressButton::follow(PressStep step) {
    if (step == PressStep::none || step == PressStep::crossed) {
        return;
    }
    update();
    announcePressed(*this);
    pressDidStep(step);
}

void PressButton::performClick() {
    platform::checkMainThread();
    if (!isEnabled()) {
        return;
    }
    QTimer::singleShot(platform::momentOfPress, this,
                       [this] { follow(input_.press().releaseKey(programKey)); });
    follow(input_.press().pressKey(programKey));
}

void PressButton::clickAtOnce() {
    const QPointer<PressButton> self(this);
    follow(input_.press().pressKey(programKey));
    if (self != nullptr) {
        follow(input_.press().releaseKey(programKey));
    }
}

void PressButton::announceOn() {
    fernhorn::announceOn(*this);
}

bool PressButton::event(QEvent* event) {
    platform::checkMainThread();
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        showsFocus_ =
            platform::showsFocusAfter(static_cast<QFocusEvent*>(event)->reason(), showsFocus_);
        update();
    }
    if (event->isInputEvent() && !isEnabled()) {
        const bool standsInTheWay =
            event->isSinglePointEvent() &&
            static_cast<QSinglePointEvent*>(event)->button() == Qt::LeftButton;
        event->setAccepted(standsInTheWay);
        return standsInTheWay || QWidget::event(event);
    }
    const Qt::KeyboardModifiers allowed = takesOptionKey() ? Qt::AltModifier : Qt::NoModifier;
    const platform::PressAnswer answer =
        input_.take(*event, {{}, {buttonSize_.width(), buttonSize_.height()}}, allowed);
    if (answer.isTaken) {
        event->accept();
        follow(answer.step); // may destroy the button
        return true;
    }
    if (event->type() == QEvent::KeyPress && handleKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    const bool isDealtWith = QWidget::event(event); // one of the events deletes the button
    if (answer.step != PressStep::none) {
        follow(answer.step);
    }
    return isDealtWith;
}

void PressButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintContent(painter, {isOn(), isPressed(), isEnabled()});
    if (showsFocus_ && hasFocus()) {
        platform::paintFocusRing(painter, QRectF({}, buttonSize_),
                                 palette().color(QPalette::Active, QPalette::Highlight),
                                 focusRadius());
    }
}

void PressButton::paintContent(QPainter& painter, const ButtonState& state) {
    paintButtonFace(painter, QRectF({}, buttonSize_), face_, state, captionLayout_);
}

} // namespace fernhorn
