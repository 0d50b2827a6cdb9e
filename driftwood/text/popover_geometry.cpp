#include "driftwood/text/popover_geometry.hpp"

#include <algorithm>
#include <array>

namespace driftwood {
namespace {

bool isAcross(RectEdge edge) {
    return edge == RectEdge::minY || edge == RectEdge::maxY;
}

core::Rect bodyAt(const core::Rect& anchor, core::Size body, RectEdge edge) {
    const core::Point middle = core::midPoint(anchor);
    const double left = middle.x - body.width * 0.5;
    const double top = middle.y - body.height * 0.5;
    switch (edge) {
    case RectEdge::minX:
        return {{anchor.origin.x - popoverArrowLength - body.width, top}, body};
    case RectEdge::minY:
        return {{left, anchor.origin.y - popoverArrowLength - body.height}, body};
    case RectEdge::maxX:
        return {{anchor.maxX() + popoverArrowLength, top}, body};
    case RectEdge::maxY:
        break;
    }
    return {{left, anchor.maxY() + popoverArrowLength}, body};
}

bool fits(const core::Rect& body, const core::Rect& screen, RectEdge edge) {
    return isAcross(edge) ? body.origin.y >= screen.origin.y && body.maxY() <= screen.maxY()
                          : body.origin.x >= screen.origin.x && body.maxX() <= screen.maxX();
}

/// Where on an edge of the body the arrow can be.
double along(double wanted, double from, double to) {
    constexpr double room = popoverCorner + popoverArrowWidth * 0.5;
    const double last = std::max(from + room, to - room);
    return std::clamp(wanted, std::min(from + room, last), last);
}

} // namespace

PopoverPlacement placePopover(const core::Rect& anchor, core::Size body, const core::Rect& screen,
                              RectEdge preferred) {
    const std::array<RectEdge, 4> all{RectEdge::maxY, RectEdge::minY, RectEdge::maxX,
                                      RectEdge::minX};
    const auto opposite = static_cast<RectEdge>((static_cast<int>(preferred) + 2) % 4);
    RectEdge edge = preferred;
    const auto fitsAt = [&](RectEdge at) { return fits(bodyAt(anchor, body, at), screen, at); };
    if (!fitsAt(preferred)) {
        const auto other = std::ranges::find_if(all, fitsAt);
        edge = fitsAt(opposite) ? opposite : other != all.end() ? *other : preferred;
    }
    const core::Rect place = core::fit(bodyAt(anchor, body, edge), screen);
    const core::Point middle = core::midPoint(anchor);
    core::Point tip;
    if (isAcross(edge)) {
        tip = {along(middle.x, place.origin.x, place.maxX()),
               edge == RectEdge::maxY ? place.origin.y - popoverArrowLength
                                      : place.maxY() + popoverArrowLength};
    } else {
        tip = {edge == RectEdge::maxX ? place.origin.x - popoverArrowLength
                                      : place.maxX() + popoverArrowLength,
               along(middle.y, place.origin.y, place.maxY())};
    }
    return {place, edge, tip};
}

} // namespace driftwood
