#pragma once

namespace platform {

/// Whether a control that can be on is on. The values count: they are stored by programs.
enum class StateValue { mixed = -1, off = 0, on = 1 };

/// What a cell knows of itself when it is drawn. A value.
struct CellState {
    StateValue state = StateValue::off;
    bool showsState = true; ///< false: its looks do not follow `state`, as with a push button
    bool isEnabled = true;
    bool isHighlighted = false; ///< pressed
};

} // namespace platform
