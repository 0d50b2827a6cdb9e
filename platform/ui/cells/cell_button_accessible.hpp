#pragma once

#include "platform/ui/cells/cell_state.hpp"

namespace platform {

class CellButton;

/// Makes buttons with cells known to screen readers: role, name, states and actions. Once is
/// enough.
void installCellButtonAccessibility();

/// Tells screen readers that the title is another one.
void announceName(CellButton& button);
/// Tells them what of the state has changed since `before`.
void announceState(CellButton& button, const CellState& before);

} // namespace platform
