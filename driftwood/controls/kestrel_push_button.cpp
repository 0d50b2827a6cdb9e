#include "driftwood/controls/kestrel_push_button.hpp"

namespace driftwood {

void KestrelPushButtonCell::drawBezel(const core::Rect& frame,
                                      const platform::CellCanvas& canvas) const {
    if (bezelStyle() != platform::BezelStyle::push) {
        BezelButtonCell::drawBezel(frame, canvas);
        return;
    }
    if (const auto* const image = toImageAsset(styleBezelImage())) {
        const core::Rect bezel{
            {frame.origin.x + bezelOffset.x, frame.origin.y + bezelOffset.y},
            {frame.size.width - bezelShrinking, frame.size.height - bezelShrinking}};
        platform::paintCellImage(canvas, bezel, *image, bezelOpacity(),
                                 platform::CellImageResizing::stretch);
    }
}

void KestrelPushButton::setFixedHeight(std::optional<double> height) {
    if (height != fixedHeight_) {
        fixedHeight_ = height;
        updateGeometry();
    }
}

core::EdgeInsets KestrelPushButton::alignmentRectInsets() const {
    if (!styledCell().hasFrame() || styledCell().bezelStyle() != platform::BezelStyle::push) {
        return {};
    }
    constexpr core::Point offset = KestrelPushButtonCell::bezelOffset;
    constexpr double shrinking = KestrelPushButtonCell::bezelShrinking;
    return {offset.y, offset.x, shrinking - offset.y, shrinking - offset.x};
}

core::Size KestrelPushButton::intrinsicContentSize() const {
    const core::Size bezel = styledCell().hasFrame() ? bezelImageSize() : core::Size();
    const core::Size size = platform::bezelSize(styledCell().cellSize(), bezel, {}, fixedWidth(),
                                                platform::BezelRule::atLeastImage);
    return {size.width, fixedHeight_.value_or(size.height)};
}

} // namespace driftwood
