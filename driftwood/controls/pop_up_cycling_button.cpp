#include "driftwood/controls/pop_up_cycling_button.hpp"

#include "core/fatal.hpp"
#include "platform/controls/pop_up_button.hpp"

namespace driftwood {

void PopUpCyclingButton::cycle(ActionTarget& target) {
    auto* const popUp = dynamic_cast<platform::PopUpButton*>(&target);
    if (popUp == nullptr) {
        core::fatal("the target of a cycling button is not a pop-up button");
    }
    if (clickModifiers().testFlag(Qt::ShiftModifier)) {
        popUp->selectPreviousItem();
    } else {
        popUp->selectNextItem();
    }
}

} // namespace driftwood
