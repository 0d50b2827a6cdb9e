#include "platform/ui/cells/cell_button.hpp"

#include "platform/ui/cells/cell_button_accessible.hpp"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace platform {
namespace {

constexpr int momentOfPress = 100; // ms that a press by Return or by a program is seen

core::Point pointOf(const QMouseEvent& event) {
    return {event.position().x(), event.position().y()};
}

} // namespace

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
    : QWidget(parent), cell_(std::move(cell)) {
    installCellButtonAccessibility();
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

CellButton::~CellButton() {
    retire();
}

void CellButton::cellDidChange() {
    updateGeometry();
    update();
}

void CellButton::setTitle(const QString& title) {
    if (title == cell_->title()) {
        return;
    }
    cell_->setTitle(title);
    cellDidChange();
    announceName(*this);
}

void CellButton::setImage(const ImageAsset* image, ImagePosition position) {
    cell_->setImage(image);
    cell_->setImagePosition(position);
    cellDidChange();
}

void CellButton::setBordered(bool isBordered) {
    cell_->setBordered(isBordered);
    cellDidChange();
}

void CellButton::setCellState(const CellState& state) {
    const CellState before = cell_->cellState();
    cell_->setCellState(state);
    update();
    announceState(*this, before);
}

void CellButton::setState(StateValue state) {
    CellState next = cell_->cellState();
    if (next.state != state) {
        next.state = state;
        setCellState(next);
    }
}

void CellButton::setShowsState(bool showsState) {
    CellState next = cell_->cellState();
    if (next.showsState != showsState) {
        next.showsState = showsState;
        setCellState(next);
    }
}

void CellButton::setHighlighted(bool isHighlighted) {
    CellState next = cell_->cellState();
    if (next.isHighlighted != isHighlighted) {
        next.isHighlighted = isHighlighted;
        setCellState(next);
        highlightDidChange(isHighlighted);
    }
}

void CellButton::setAlphaValue(double alpha) {
    const double clamped = std::clamp(alpha, 0.0, 1.0);
    if (clamped != alphaValue_) {
        alphaValue_ = clamped;
        update();
    }
}

QSize CellButton::sizeHint() const {
    const core::Size size = intrinsicContentSize();
    const core::EdgeInsets insets = alignmentRectInsets();
    return {static_cast<int>(std::ceil(size.width + insets.left + insets.right)),
            static_cast<int>(std::ceil(size.height + insets.top + insets.bottom))};
}

bool CellButton::showsFocusRing() const {
    return hasFocus() && isActiveWindow();
}

QAccessible::Role CellButton::accessibleRole() const {
    return QAccessible::Button;
}

QColor CellButton::focusRingColor() const {
    return palette().color(QPalette::Highlight);
}

core::Rect CellButton::bounds() const {
    return {{0, 0}, {static_cast<double>(width()), static_cast<double>(height())}};
}

void CellButton::click() {
    const QPointer<CellButton> self(this);
    if (cell_->cellState().showsState) {
        setState(cell_->nextState());
    }
    if (self != nullptr) {
        sendAction(); // may destroy the button
    }
}

void CellButton::performClick() {
    clickModifiers_ = {};
    if (isEnabled()) {
        flashAndClick();
    }
}

void CellButton::flashAndClick() {
    setHighlighted(true);
    QTimer::singleShot(momentOfPress, this, [this] {
        if (!tracker_.isPressed()) {
            setHighlighted(false);
        }
    });
    click();
}

void CellButton::follow(PressTracker::Result result) {
    const QPointer<CellButton> self(this);
    setHighlighted(tracker_.isPressed());
    if (wasTracking_ != tracker_.isTracking()) {
        wasTracking_ = tracker_.isTracking();
        trackingDidChange(wasTracking_);
    }
    if (result == PressTracker::Result::clicked && self != nullptr) {
        click();
    }
}

void CellButton::cancelPress() {
    follow(tracker_.cancel());
}

void CellButton::press(const QMouseEvent& event, int clickCount) {
    if (event.button() != Qt::LeftButton && event.button() != Qt::RightButton) {
        return;
    }
    // The first click of a series has its own meaning in some buttons, even with Control.
    if (event.button() == Qt::LeftButton) {
        follow(tracker_.press(pointOf(event), bounds()));
        if (tracker_.isTracking() && mouseDown(clickCount)) {
            return;
        }
    }
    if (isSecondaryClick(event) && hasSecondaryClick()) {
        cancelPress();
        performSecondaryClick();
    }
}

bool CellButton::handleKey(QEvent& event) {
    auto& key = static_cast<QKeyEvent&>(event);
    const bool isDown = event.type() == QEvent::KeyPress;
    if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
        return false;
    }
    switch (key.key()) {
    case Qt::Key_Space:
    case Qt::Key_Select:
        if (!key.isAutoRepeat()) {
            follow(isDown ? tracker_.pressKey() : tracker_.releaseKey());
        }
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (isDown && !key.isAutoRepeat()) {
            flashAndClick();
        }
        return true;
    case Qt::Key_Escape:
        if (isDown && tracker_.isTracking()) {
            cancelPress();
            return true;
        }
        return false;
    default:
        return false;
    }
}

bool CellButton::event(QEvent* event) {
    if (event->isInputEvent()) {
        clickModifiers_ = static_cast<QInputEvent*>(event)->modifiers();
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        if (mouse.button() == Qt::RightButton && !hasSecondaryClick()) {
            break; // the views behind may want it
        }
        if (isEnabled()) {
            press(mouse, event->type() == QEvent::MouseButtonPress ? 1 : 2);
        }
        event->accept();
        return true;
    }
    case QEvent::MouseMove:
        follow(tracker_.move(pointOf(*static_cast<QMouseEvent*>(event)), bounds()));
        return true;
    case QEvent::MouseButtonRelease: {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        if (mouse.button() == Qt::LeftButton) {
            follow(tracker_.release(pointOf(mouse), bounds()));
        }
        return true;
    }
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
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (isEnabled() && handleKey(*event)) {
            event->accept();
            return true;
        }
        break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        update();
        if (event->type() == QEvent::FocusOut) {
            cancelPress();
        }
        break;
    case QEvent::Hide:
    case QEvent::UngrabMouse:
    case QEvent::WindowDeactivate:
        cancelPress();
        update();
        break;
    case QEvent::WindowActivate:
        update();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void CellButton::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) {
        cancelPress();
        CellState next = cell_->cellState();
        next.isEnabled = isEnabled();
        setCellState(next);
    }
    QWidget::changeEvent(event);
}

void CellButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (alphaValue_ < 1) {
        painter.setOpacity(alphaValue_);
    }
    const core::Rect frame = bounds();
    cell_->draw(frame, {painter, palette().color(QPalette::ButtonText),
                        layoutDirection() == Qt::RightToLeft});
    if (showsFocusRing()) {
        paintControlFocusRing(painter, cell_->focusRingMaskBounds(frame), focusRingColor());
    }
}

} // namespace platform
