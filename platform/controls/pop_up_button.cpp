#include "platform/controls/pop_up_button.hpp"

#include "platform/controls/internal/pop_up_button_accessible.hpp"

#include <QKeyEvent>

namespace platform {
namespace {

bool canBeSelected(const MenuItem& item) {
    return item.isVisible() && item.isEnabled() && !item.isSeparator();
}

/// Whether a key opens the menu; with Control or Meta it is somebody's shortcut.
bool opens(const QKeyEvent& key) {
    if (key.modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) {
        return false;
    }
    switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
        return true;
    case Qt::Key_Space:
    case Qt::Key_Select:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return !key.modifiers().testFlag(Qt::AltModifier);
    default:
        return false;
    }
}

} // namespace

PopUpButton::PopUpButton(std::unique_ptr<ButtonCell> cell, Kind kind, QWidget* parent)
    : CellButton(std::move(cell), parent), kind_(kind), menu_(new Menu({}, this)) {
    connect(menu_, &Menu::chosen, this, &PopUpButton::choose);
}

MenuItem& PopUpButton::addItem(std::unique_ptr<MenuItem> item) {
    MenuItem& added = menu_->addItem(std::move(item));
    itemsDidChange();
    return added;
}

void PopUpButton::setItems(std::vector<std::unique_ptr<MenuItem>> items) {
    menu_->setItems(std::move(items));
    itemsDidChange();
}

void PopUpButton::itemsDidChange() {
    if (kind_ == Kind::popUp && selected_ == nullptr) {
        selectItem(menu_->firstItem(canBeSelected));
    }
}

void PopUpButton::selectItem(MenuItem* item) {
    if (kind_ == Kind::pullDown) {
        return;
    }
    if (selected_ != nullptr && selected_ != item) {
        selected_->setState(StateValue::off);
    }
    selected_ = item;
    if (item != nullptr) {
        item->setState(StateValue::on);
    }
    setTitle(item != nullptr ? item->title() : QString());
}

void PopUpButton::selectItemAt(int index) {
    if (MenuItem* const item = menu_->itemAt(index)) {
        selectItem(item);
    }
}

void PopUpButton::selectItemWithTag(int tag) {
    if (MenuItem* const item =
            menu_->firstItem([tag](const MenuItem& candidate) { return candidate.tag() == tag; })) {
        selectItem(item);
    }
}

void PopUpButton::selectNextItem() {
    step(1);
}

void PopUpButton::selectPreviousItem() {
    step(-1);
}

void PopUpButton::step(int by) {
    for (int index = indexOfSelectedItem() + by; MenuItem* const item = menu_->itemAt(index);
         index += by) {
        if (canBeSelected(*item)) {
            selectItem(item);
            sendAction(); // may destroy the button
            return;
        }
    }
}

void PopUpButton::choose(MenuItem* item) {
    const QPointer<MenuItem> chosen(item);
    const QPointer<PopUpButton> self(this);
    selectItem(item);
    if (self != nullptr && chosen != nullptr && item->target() == nullptr) {
        sendAction(); // may destroy the button
    }
}

double PopUpButton::titleStart() const {
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const core::Rect title = cell().titleRect(cell().drawingRect(bounds()), isMirrored);
    return isMirrored ? width() - title.maxX() : title.origin.x;
}

void PopUpButton::openMenu(MenuOpenedBy by) {
    if (!isEnabled() || menu_->isEmpty()) {
        return;
    }
    if (kind_ == Kind::popUp && indexOfSelectedItem() >= 0 && selected_->isVisible()) {
        menu_->popUpOver(*this, *selected_, titleStart(), by);
    } else {
        menu_->popUpBelow(*this, Qt::AlignLeading, 4, by);
    }
}

bool PopUpButton::mouseDown(int /*clickCount*/) {
    cancelPress(); // the menu hears the rest of it
    openMenu();
    return true;
}

bool PopUpButton::handleEvent(QEvent* event) {
    const bool isPress = event->type() == QEvent::KeyPress;
    if (isEnabled() && (isPress || event->type() == QEvent::KeyRelease)) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (opens(key)) {
            event->accept();
            if (isPress && !key.isAutoRepeat()) {
                openMenu(MenuOpenedBy::key);
            }
            return true;
        }
    }
    return CellButton::handleEvent(event);
}

QAccessible::Role PopUpButton::accessibleRole() const {
    return QAccessible::ButtonMenu;
}

QAccessibleInterface* PopUpButton::makeAccessible() {
    return makePopUpButtonAccessible(*this);
}

} // namespace platform
