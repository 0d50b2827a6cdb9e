#include "driftwood/controls/bezel_button_cell.hpp"

#include "driftwood/bridges/bundle_asset_source.hpp"
#include "platform/assets/asset_catalog.hpp"

namespace driftwood {

using platform::CellCanvas;

core::Rect BezelButtonCell::drawingRect(const core::Rect& bounds) const {
    return hasFrame() ? core::atLeastEmpty(core::inset(bounds, edgeInsets(), false)) : bounds;
}

core::Rect BezelButtonCell::imageRect(const core::Rect& bounds, bool isRightToLeft) const {
    const core::Rect inset = core::atLeastEmpty(core::inset(bounds, imageEdgeInsets(), false));
    if (imagePosition() == platform::ImagePosition::imageOnly) {
        return inset;
    }
    return platform::centeredVertically(ButtonCell::imageRect(inset, isRightToLeft), bounds);
}

core::Rect BezelButtonCell::titleRect(const core::Rect& bounds, bool isRightToLeft) const {
    const core::Rect rect = ButtonCell::titleRect(
        core::atLeastEmpty(core::inset(bounds, titleEdgeInsets(), false)), isRightToLeft);
    return verticallyCenterTitle_ ? platform::centeredVertically(rect, bounds) : rect;
}

core::Rect BezelButtonCell::focusRingMaskBounds(const core::Rect& frame) const {
    return hasFrame() ? frame : drawingRect(frame);
}

QFont BezelButtonCell::titleFont() const {
    return toQFont(controlStyle().font());
}

void BezelButtonCell::drawBezel(const core::Rect& frame, const CellCanvas& canvas) const {
    if (const auto* const image = toImageAsset(styleBezelImage())) {
        platform::paintCellImage(canvas, frame, *image, bezelOpacity());
    }
}

void BezelButtonCell::drawImage(const platform::ImageAsset& image, const core::Rect& frame,
                                const CellCanvas& canvas) const {
    const platform::CellState& state = cellState();
    const bool isWhole = !state.isHighlighted && state.isEnabled;
    platform::paintCellImage(
        canvas,
        platform::scaledImageRect(frame, {image.size().width(), image.size().height()},
                                  imageScaling()),
        image, isWhole ? 1.0 : 0.5,
        imageScaling() == platform::ImageScaling::axesIndependently
            ? platform::CellImageResizing::stretch
            : platform::CellImageResizing::asTheImageSays);
}

void BezelButtonCell::drawTitle(const QString& title, const core::Rect& frame,
                                const CellCanvas& canvas) const {
    paintTitle(title, frame, canvas, toQColor(styleTextColor()));
}

} // namespace driftwood
