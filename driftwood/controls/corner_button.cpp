#include "driftwood/controls/corner_button.hpp"

#include <QPointer>

namespace driftwood {
namespace {

constexpr int gap = 4; // points between button and menu

} // namespace

bool CornerButton::mouseDown(int clickCount) {
    if (alternateMenu_ == nullptr || clickCount != 1) {
        return false;
    }
    cancelPress(); // the menu hears the rest of it
    return performSecondaryClick();
}

bool CornerButton::performSecondaryClick() {
    const std::shared_ptr<PopUpMenu> menu = alternateMenu_;
    if (menu == nullptr) {
        return false;
    }
    setHighlighted(true);
    menu->popUp(*this, QPoint(0, height() + gap), [self = QPointer<CornerButton>(this)] {
        if (self != nullptr) {
            self->setHighlighted(false);
        }
    });
    return true;
}

QAccessible::Role CornerButton::accessibleRole() const {
    return alternateMenu_ != nullptr ? QAccessible::ButtonMenu : QAccessible::Button;
}

} // namespace driftwood
