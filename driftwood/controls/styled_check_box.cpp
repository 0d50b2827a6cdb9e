#include "driftwood/controls/styled_check_box.hpp"

#include <algorithm>
#include <cmath>

namespace driftwood {
namespace {

using platform::StateValue;

/// From the leading edge to the title.
constexpr double titleStart =
    StyledCheckBoxCell::xOffset + StyledCheckBoxCell::imageSize.width + platform::imageTitleGap;

} // namespace

StyledCheckBoxCell::StyledCheckBoxCell(const QString& title) : StyledCell(title) {
    setBordered(false);
    platform::CellState state = cellState();
    state.showsState = true;
    setCellState(state);
}

StateValue StyledCheckBoxCell::nextState() const {
    return cellState().state == StateValue::on ? StateValue::off : StateValue::on;
}

core::Rect StyledCheckBoxCell::imageRect(const core::Rect& bounds, bool isRightToLeft) const {
    const double x =
        isRightToLeft ? bounds.maxX() - imageSize.width - xOffset : bounds.origin.x + xOffset;
    const double middle = bounds.origin.y + bounds.size.height * 0.5;
    return {{x, std::trunc(middle - imageSize.height * 0.5)}, imageSize};
}

core::Rect StyledCheckBoxCell::titleRect(const core::Rect& bounds, bool isRightToLeft) const {
    const core::Rect inset = core::atLeastEmpty(core::inset(bounds, titleEdgeInsets(), false));
    const core::Size title = titleSize();
    const double width =
        std::clamp(std::ceil(title.width), 0.0, std::max(0.0, inset.size.width - titleStart));
    const double x =
        isRightToLeft ? inset.maxX() - titleStart - width : inset.origin.x + titleStart;
    const core::Rect rect{{x, inset.origin.y}, {width, title.height}};
    return verticallyCenterTitle() ? platform::centeredVertically(rect, bounds) : rect;
}

core::Size StyledCheckBoxCell::cellSize() const {
    const core::Size text = title().isEmpty() ? core::Size{} : titleSize();
    // Without a title there is room for the whole box, though it begins outside.
    const double width = title().isEmpty() ? imageSize.width : titleStart + std::ceil(text.width);
    return {width, std::max(imageSize.height, std::ceil(text.height))};
}

void StyledCheckBoxCell::drawInterior(const core::Rect& frame,
                                      const platform::CellCanvas& canvas) const {
    const core::Rect inner = drawingRect(frame);
    if (const auto* const box = toImageAsset(styleImage(*this))) {
        // Pressed, it has an image of its own and is not faded.
        platform::paintCellImage(canvas, imageRect(inner, canvas.isRightToLeft), *box,
                                 bezelOpacity(), platform::CellImageResizing::stretch);
    }
    if (!title().isEmpty()) {
        drawTitle(title(), titleRect(inner, canvas.isRightToLeft), canvas);
    }
}

} // namespace driftwood
