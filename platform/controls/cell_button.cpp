#include "platform/controls/cell_button.hpp"

#include "platform/controls/internal/cell_button_accessible.hpp"
#include "platform/controls/main_thread.hpp"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>

namespace platform {

bool isSecondaryClick(const QMouseEvent& event) {
#ifdef Q_OS_MACOS
    constexpr Qt::KeyboardModifier control = Qt::MetaModifier; // Qt calls Command "Control" there
#else
    constexpr Qt::KeyboardModifier control = Qt::ControlModifier;
#endif
    return event.button() == Qt::RightButton ||
           (event.button() == Qt::LeftButton && event.modifiers().testFlag(control));
}

CellButton::CellButton(std::unique_ptr<ButtonCell> cell, QWidget* parent)
    : CellControl(std::move(cell), parent) {}

void CellButton::setTitle(const QString& title) {
    if (title == cell().title()) {
        return;
    }
    cell().setTitle(title);
    cellDidChange();
    if (QAccessible::isActive()) {
        QAccessibleEvent changed(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&changed);
    }
}

void CellButton::setImage(const ImageAsset* image, ImagePosition position) {
    cell().setImage(image);
    cell().setImagePosition(position);
    cellDidChange();
}

void CellButton::setBordered(bool isBordered) {
    cell().setBordered(isBordered);
    cellDidChange();
}

void CellButton::setState(StateValue state) {
    checkMainThread();
    CellState next = cell().cellState();
    if (next.state != state) {
        next.state = state;
        setCellState(next);
    }
}

void CellButton::setShowsState(bool showsState) {
    checkMainThread();
    CellState next = cell().cellState();
    if (next.showsState != showsState) {
        next.showsState = showsState;
        setCellState(next);
    }
}

QAccessible::Role CellButton::accessibleRole() const {
    return cell().cellState().showsState ? QAccessible::CheckBox : QAccessible::Button;
}

QString CellButton::spokenName() const {
    return title().isEmpty() ? toolTip() : title();
}

QAccessibleInterface* CellButton::makeAccessible() {
    return makeCellButtonAccessible(*this);
}

void CellButton::cellStateDidChange(const CellState& before) {
    announceState(*this, before);
}

void CellButton::click() {
    const QPointer<CellButton> self(this);
    if (cell().cellState().showsState) {
        setState(cell().nextState());
    }
    if (self != nullptr) {
        sendAction(); // may destroy the button
    }
}

void CellButton::performClick() {
    checkMainThread();
    clickModifiers_ = {};
    if (!isEnabled()) {
        return;
    }
    setHighlighted(true, HighlightOwner::press);
    QTimer::singleShot(momentOfPress, this, [this] {
        setHighlighted(input_.press().isInside(), HighlightOwner::press);
    });
    click();
}

void CellButton::follow(PressStep step) {
    if (step == PressStep::none) {
        return;
    }
    const QPointer<CellButton> self(this);
    setHighlighted(input_.press().isInside(), HighlightOwner::press);
    if (step != PressStep::crossed) {
        trackingDidChange(step == PressStep::began);
    }
    if (step == PressStep::clicked && self != nullptr) {
        click();
    }
}

void CellButton::cancelPress() {
    follow(input_.press().cancel());
}

void CellButton::press(const QMouseEvent& event, int clickCount) {
    // The first click of a series has its own meaning in some buttons, even with Control.
    if (event.button() == Qt::LeftButton) {
        follow(input_.take(event, bounds()).step);
        if (input_.press().isTracking() && mouseDown(clickCount)) {
            return;
        }
    }
    if (!isSecondaryClick(event)) {
        return;
    }
    if (hasSecondaryClick()) {
        cancelPress();
        performSecondaryClick();
    } else if (stopsAtControlClick()) {
        cancelPress();
    }
}

bool CellButton::take(const QEvent& event) {
    const PressAnswer answer = input_.take(event, bounds());
    follow(answer.step); // may destroy the button
    return answer.isTaken;
}

bool CellButton::handleEvent(QEvent* event) {
    if (event->isInputEvent()) {
        clickModifiers_ = static_cast<QInputEvent*>(event)->modifiers();
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        if (mouse.button() != Qt::LeftButton &&
            (mouse.button() != Qt::RightButton || !hasSecondaryClick())) {
            break; // the views behind may want it
        }
        event->accept();
        if (isEnabled()) {
            press(mouse, event->type() == QEvent::MouseButtonPress ? 1 : 2);
        }
        return true;
    }
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (isEnabled() && take(*event)) {
            event->accept();
            return true;
        }
        break;
    case QEvent::ContextMenu:
        if (hasSecondaryClick() && isEnabled()) {
            // The mouse's press has been dealt with; this is the menu key.
            if (static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
                performSecondaryClick();
            }
            event->accept();
            return true;
        }
        break;
    case QEvent::Polish:
        setupButton();
        break;
    default:
        break;
    }
    return CellControl::handleEvent(event);
}

} // namespace platform
