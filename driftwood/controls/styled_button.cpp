#include "driftwood/controls/styled_button.hpp"

#include <algorithm>

namespace driftwood {

StyledButton::StyledButton(const QString& title, QWidget* parent)
    : StyledButton(std::make_unique<StyledButtonCell>(title), parent) {}

StyledButton::StyledButton(std::unique_ptr<StyledButtonCell> cell, QWidget* parent)
    : CellButton(std::move(cell), parent),
      styledCell_(static_cast<StyledButtonCell&>(this->cell())),
      follower_(*this, styledCell_.controlStyle()) {}

void StyledButton::setSelected(bool isSelected) {
    if (isSelected != styledCell_.isSelected()) {
        styledCell_.setSelected(isSelected);
        update();
    }
}

void StyledButton::setFixedWidth(std::optional<double> width) {
    if (width != fixedWidth_) {
        fixedWidth_ = width;
        updateGeometry();
    }
}

core::EdgeInsets StyledButton::alignmentRectInsets() const {
    return StyledButtonCell::style().alignmentRectInsets(); // of that class, also for others' cells
}

core::Size StyledButton::intrinsicContentSize() const {
    core::Size size = CellButton::intrinsicContentSize();
    if (fixedWidth_) {
        size.width = *fixedWidth_;
    }
    const Image& bezel = styledCell_.styleBezelImage();
    if (styledCell_.isBordered() && bezel) {
        const core::EdgeInsets insets = alignmentRectInsets();
        const core::Size image = bezel->size();
        size.width =
            std::max(size.width, fixedWidth_.value_or(image.width)) - (insets.left + insets.right);
        size.height = image.height - (insets.top + insets.bottom);
    }
    return size;
}

QColor StyledButton::focusRingColor() const {
    return toQColor(styledCell_.styleFocusRingColor());
}

} // namespace driftwood
