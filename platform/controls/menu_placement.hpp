#pragma once

#include "core/geometry.hpp"

namespace platform {

// Where menus open, in points of the desktop. Pure functions, any thread.

/// The edge at which a menu is flush with the control that opens it.
enum class MenuEdge { left, right };

/// The place of a menu that opens a gap below a control: above it where there is no room below but
/// there is above, and moved into the screen as far as needed.
[[nodiscard]] core::Rect menuBelow(const core::Rect& control, core::Size menu,
                                   const core::Rect& screen, MenuEdge edge, double gap);

/// The same rectangle as near as possible to where it is, but within the screen; one that is too
/// large starts where the screen starts.
[[nodiscard]] core::Rect menuWithin(const core::Rect& menu, const core::Rect& screen);

} // namespace platform
