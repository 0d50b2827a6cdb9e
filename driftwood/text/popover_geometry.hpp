#pragma once

#include "core/geometry.hpp"

namespace driftwood {

/// The edges of a rectangle; y grows downwards, so that `maxY` is the lower one. The values count.
enum class RectEdge { minX = 0, minY = 1, maxX = 2, maxY = 3 };

/// Where a popover stands, in the coordinates of the anchor and the screen.
struct PopoverPlacement {
    core::Rect body;                ///< without the arrow
    RectEdge edge = RectEdge::maxY; ///< of the anchor
    core::Point tip;                ///< of the arrow, at that edge
};

inline constexpr double popoverArrowLength = 8; ///< from the body to the tip, in points
inline constexpr double popoverArrowWidth = 16; ///< at the body
inline constexpr double popoverCorner = 6;

/// A popover at an edge of its anchor: the preferred one, or the one across from it where the
/// popover does not fit there, or another one; and moved along the edge into the screen. Where it
/// fits nowhere it stays at the preferred edge and is moved into the screen. Any thread.
[[nodiscard]] PopoverPlacement placePopover(const core::Rect& anchor, core::Size body,
                                            const core::Rect& screen, RectEdge preferred);

} // namespace driftwood
