#pragma once

#include "platform/controls/cell_state.hpp"

class QAccessibleInterface;

namespace platform {

class CellButton;

/// What screen readers are told of a button with a cell: role, name, states and actions. Owned by
/// the caller. Main thread.
[[nodiscard]] QAccessibleInterface* makeCellButtonAccessible(CellButton& button);

/// Tells screen readers what of the state has changed since `before`. Main thread.
void announceState(CellButton& button, const CellState& before);

} // namespace platform
