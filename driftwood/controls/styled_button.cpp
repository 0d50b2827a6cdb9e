#include "driftwood/controls/styled_button.hpp"

namespace driftwood {

StyledButton::StyledButton(const QString& title, QWidget* parent)
    : StyledButton(std::make_unique<StyledButtonCell>(title), parent) {}

core::EdgeInsets StyledButton::alignmentRectInsets() const {
    return StyledButtonCell::style().alignmentRectInsets(); // of that class, also for others' cells
}

core::Size StyledButton::intrinsicContentSize() const {
    const core::Size bezel = styledCell().isBordered() ? bezelImageSize() : core::Size();
    return platform::bezelSize(styledCell().cellSize(), bezel, alignmentRectInsets(), fixedWidth(),
                               platform::BezelRule::tallAsImageOrFixedWidth);
}

} // namespace driftwood
