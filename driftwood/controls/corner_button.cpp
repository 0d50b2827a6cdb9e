#include "driftwood/controls/corner_button.hpp"

#include "platform/controls/current_event.hpp"
#include "platform/controls/menu.hpp"

namespace driftwood {

void CornerButton::setAlternateMenu(std::unique_ptr<platform::Menu> menu) {
    delete alternateMenu_;
    alternateMenu_ = menu.release();
    if (alternateMenu_ != nullptr) {
        alternateMenu_->setParent(this, alternateMenu_->windowFlags());
    }
}

bool CornerButton::mouseDown(int clickCount) {
    if (alternateMenu_ == nullptr || clickCount != 1) {
        return false;
    }
    cancelPress(); // the menu hears the rest of it
    return performSecondaryClick();
}

bool CornerButton::performSecondaryClick() {
    using platform::EventKind;
    using platform::MenuOpenedBy;
    if (alternateMenu_ == nullptr) {
        return false;
    }
    const platform::InputEvent* const event = platform::currentEvent();
    const bool isByPointer = event != nullptr && (event->kind == EventKind::leftMouseDown ||
                                                  event->kind == EventKind::otherMouseDown);
    alternateMenu_->popUpBelow(*this, Qt::AlignLeading, 4,
                               isByPointer ? MenuOpenedBy::pointer : MenuOpenedBy::key);
    return true;
}

QAccessible::Role CornerButton::accessibleRole() const {
    return alternateMenu_ != nullptr ? QAccessible::ButtonMenu : QAccessible::Button;
}

QWidget* CornerButton::accessibleMenu() const {
    return alternateMenu_;
}

} // namespace driftwood
