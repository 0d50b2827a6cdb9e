#include "platform/controls/menu_placement.hpp"

#include <algorithm>

namespace platform {

core::Rect menuWithin(const core::Rect& menu, const core::Rect& screen) {
    const auto within = [](double at, double length, double from, double to) {
        return std::max(from, std::min(at, to - length));
    };
    return {{within(menu.origin.x, menu.size.width, screen.origin.x, screen.maxX()),
             within(menu.origin.y, menu.size.height, screen.origin.y, screen.maxY())},
            menu.size};
}

core::Rect menuBelow(const core::Rect& control, core::Size menu, const core::Rect& screen,
                     MenuEdge edge, double gap) {
    const double x = edge == MenuEdge::left ? control.origin.x : control.maxX() - menu.width;
    const double below = control.maxY() + gap;
    const double above = control.origin.y - gap - menu.height;
    const bool fitsBelow = below + menu.height <= screen.maxY();
    const bool fitsAbove = above >= screen.origin.y;
    return menuWithin({{x, fitsBelow || !fitsAbove ? below : above}, menu}, screen);
}

} // namespace platform
