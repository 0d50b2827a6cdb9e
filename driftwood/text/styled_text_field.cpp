#include "driftwood/text/styled_text_field.hpp"

#include "core/fatal.hpp"

#include <limits>

namespace driftwood {

StyledTextField::StyledTextField(QWidget* parent, double verticalInset)
    : StyledTextField(std::make_unique<StyledTextFieldCell>(), parent) {
    verticalInset_ = verticalInset;
}

StyledTextField::StyledTextField(const QRect& frame, double verticalInset, QWidget* parent)
    : StyledTextField(parent, verticalInset) {
    setGeometry(frame);
}

StyledTextField::StyledTextField(std::unique_ptr<StyledTextFieldCell> cell, QWidget* parent)
    : FirstResponderAwareTextField(std::move(cell), parent) {
    styledCell().setBezeled(true);
    styledCell().setDrawsBackground(true);
    setEditable(true);
    followStyle();
    focusRingClearingWorkaround(*this);
}

void StyledTextField::followStyle() {
    follower_.emplace(*this, styledCell().controlStyle(), [](QWidget& widget, BaseStyle&) {
        static_cast<StyledTextField&>(widget).refreshFieldEditor();
    });
}

void StyledTextField::setVerticalInset(double inset) {
    if (inset != verticalInset_) {
        verticalInset_ = inset;
        updateGeometry();
    }
}

void StyledTextField::setVerticallyCenter(bool centers) {
    styledCell().setVerticallyCenter(centers);
    fieldEditorAttributesDidChange();
}

void StyledTextField::setSelected(bool isSelected) {
    if (isSelected != this->isSelected()) {
        styledCell().setSelected(isSelected);
        update();
        accessibleSelectionDidChange();
    }
}

std::optional<bool> StyledTextField::accessibleSelection() const {
    // Only what is selected says so: most fields never are.
    return isSelected() ? std::optional(true) : std::nullopt;
}

bool StyledTextField::acceptsCell(const platform::TextFieldCell& cell) const {
    return dynamic_cast<const StyledTextFieldCell*>(&cell) != nullptr;
}

void StyledTextField::setCell(std::unique_ptr<platform::TextFieldCell> cell) {
    if (cell == nullptr || !acceptsCell(*cell)) {
        core::fatal("The cell is not of the class that the text field expects");
    }
    follower_.reset();
    const QString text = cell->stringValue();
    cell->setStringValue(stringValue());
    CellControl::setCell(std::move(cell));
    replaceText(text);
    followStyle();
    fieldEditorAttributesDidChange();
}

std::optional<core::Size> StyledTextField::bezelSize() const {
    const Image& bezel = styledCell().styleBezelImage();
    return styledCell().hasFrame() && bezel ? std::optional(bezel->size()) : std::nullopt;
}

core::EdgeInsets StyledTextField::alignmentRectInsets() const {
    return styledCell().hasFrame() ? core::EdgeInsets{verticalInset_, 2, verticalInset_, 2}
                                   : FirstResponderAwareTextField::alignmentRectInsets();
}

core::Size StyledTextField::intrinsicContentSize() const {
    const core::Size size = FirstResponderAwareTextField::intrinsicContentSize();
    return core::componentwiseMax(size, bezelSize().value_or(core::Size()));
}

double StyledTextField::firstBaselineOffsetFromTop() const {
    return firstBaselineOffset(bounds(), styledCell().titleRect(bounds()), alignmentRectInsets(),
                               ViewOrientation::flipped);
}

double StyledTextField::lastBaselineOffsetFromBottom() const {
    return lastBaselineOffset(bounds(), styledCell().titleRect(bounds()), alignmentRectInsets(),
                              ViewOrientation::flipped);
}

WidthResizingTextField::WidthResizingTextField(QWidget* parent)
    : WidthResizingTextField(std::make_unique<StyledTextFieldCell>(), parent) {}

WidthResizingTextField::WidthResizingTextField(std::unique_ptr<StyledTextFieldCell> cell,
                                               QWidget* parent)
    : StyledTextField(std::move(cell), parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

core::Size WidthResizingTextField::intrinsicContentSize() const {
    return styledCell().cellSizeForBounds(
        {{0, 0},
         {std::numeric_limits<double>::max(), StyledTextField::intrinsicContentSize().height}});
}

void WidthResizingTextField::textDidChange() {
    updateGeometry();
    StyledTextField::textDidChange();
}

double firstBaselineOffset(const core::Rect& bounds, const core::Rect& title,
                           const core::EdgeInsets& insets, ViewOrientation orientation) {
    return orientation == ViewOrientation::flipped ? bounds.origin.y + title.maxY() - insets.top
                                                   : bounds.maxY() - title.origin.y + insets.top;
}

double lastBaselineOffset(const core::Rect& bounds, const core::Rect& title,
                          const core::EdgeInsets& insets, ViewOrientation orientation) {
    return orientation == ViewOrientation::flipped
               ? bounds.maxY() - title.maxY() + insets.bottom
               : bounds.origin.y + title.origin.y - insets.bottom;
}

} // namespace driftwood
