#include "driftwood/style/styled_control.hpp"

namespace driftwood {

StyledControlState styledControlState(const platform::CellState& cell, const Selectable* selectable,
                                      const Validating* validating) {
    StyledControlState state = StyledControlState::default_;
    if (cell.showsState && cell.state == platform::StateValue::on) {
        state |= StyledControlState::on;
    } else if (cell.showsState && cell.state == platform::StateValue::mixed) {
        state |= StyledControlState::mixed;
    }
    if (!cell.isEnabled) {
        state |= StyledControlState::disabled;
    } else if (cell.isHighlighted) {
        state |= StyledControlState::highlighted;
    }
    if (selectable != nullptr && selectable->isSelected()) {
        state |= StyledControlState::selected;
    }
    if (validating != nullptr && !validating->isValid()) {
        state |= StyledControlState::invalid;
    }
    return state;
}

} // namespace driftwood
