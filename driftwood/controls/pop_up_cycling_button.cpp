#include "driftwood/controls/pop_up_cycling_button.hpp"

#include "core/fatal.hpp"
#include "driftwood/controls/pop_up.hpp"

namespace driftwood {

void PopUpCyclingButton::cycle(ActionTarget& target) {
    auto* const items = dynamic_cast<ItemCycling*>(&target);
    if (items == nullptr) {
        core::fatal("the target of a cycling button is not a pop-up button");
    }
    if (clickModifiers().testFlag(Qt::ShiftModifier)) {
        items->selectPreviousItem(*this);
    } else {
        items->selectNextItem(*this);
    }
}

} // namespace driftwood
