#pragma once

namespace driftwood {

/// The sizes of controls drawn by cells. The values count.
enum class CellControlSize { regular = 0, small = 1, mini = 2, large = 3, extraLarge = 4 };

/// The sizes of controls in declarative views.
enum class ControlSize { mini, small, regular, large, extraLarge };

/// The one for the other. Extra large becomes large both ways. A value that is no size stops the
/// program with "Unhandled control size: " and the value. Any thread.
[[nodiscard]] ControlSize swiftUIControlSize(CellControlSize size);
[[nodiscard]] CellControlSize nsControlSize(ControlSize size);

} // namespace driftwood
