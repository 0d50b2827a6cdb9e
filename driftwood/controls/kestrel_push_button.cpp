#include "driftwood/controls/kestrel_push_button.hpp"

#include <algorithm>

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

KestrelPushButton::KestrelPushButton(const QString& title, QWidget* parent)
    : CellButton(std::make_unique<KestrelPushButtonCell>(title), parent),
      follower_(*this, KestrelPushButtonCell::style()) {}

void KestrelPushButton::setSelected(bool isSelected) {
    auto& cell = static_cast<KestrelPushButtonCell&>(this->cell());
    if (isSelected != cell.isSelected()) {
        cell.setSelected(isSelected);
        update();
    }
}

void KestrelPushButton::setFixedWidth(std::optional<double> width) {
    if (width != fixedWidth_) {
        fixedWidth_ = width;
        updateGeometry();
    }
}

void KestrelPushButton::setFixedHeight(std::optional<double> height) {
    if (height != fixedHeight_) {
        fixedHeight_ = height;
        updateGeometry();
    }
}

core::Size KestrelPushButton::intrinsicContentSize() const {
    core::Size size = CellButton::intrinsicContentSize();
    const Image& bezel = pushCell().styleBezelImage();
    if (pushCell().hasFrame() && bezel) {
        constexpr double around = KestrelPushButtonCell::bezelShrinking;
        size.width += around;
        size.height = std::max(size.height, bezel->size().height) + around;
    }
    return {fixedWidth_.value_or(size.width), fixedHeight_.value_or(size.height)};
}

QColor KestrelPushButton::focusRingColor() const {
    return toQColor(pushCell().styleFocusRingColor());
}

} // namespace driftwood
