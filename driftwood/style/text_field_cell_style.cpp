#include "driftwood/style/text_field_cell_style.hpp"

#include "driftwood/style/styles.hpp"

namespace driftwood {
namespace {

using State = StyledControlState;

void setSelection(TextFieldCellStyle& style, const Font& font, const Color& text,
                  Color background) {
    style.setSelectedFont(font);
    style.setSelectedTextColor(text);
    style.setSelectedBackgroundColor(std::move(background));
}

void setNoRing(TextFieldCellStyle& style) {
    style.setFocusRingColor(Styles::TextInput::background());
    style.setInvalidFocusRingColor(Styles::TextInput::background());
}

} // namespace

TextFieldCellStyle::TextFieldCellStyle()
    : placeholderTextColor_(Styles::TextInput::placeholderTextColor()),
      placeholderBackground_(Styles::TextInput::placeholderBackground()),
      padding_{2, 6, 2, 6} {
    using Input = Styles::TextInput;
    setFont(Input::font());
    setTextColor(Input::textColor());
    setTextBackgroundColor(Input::background());
    setSelection(*this, Input::font(), Input::selectedTextColor(), Input::selectedBackground());
    setDisabledTextColor(Input::disabledTextColor());
    setDisabledBackgroundColor(Input::disabledBackground());
    setHighlightedTextColor(Input::highlightedTextColor());
    setHighlightedBackgroundColor(Input::highlightedBackground());
    // The error colour of text is meant for a plain ground. Here the ground takes that colour, and
    // the text on it has to be read.
    setInvalidTextColor(Styles::Control::errorTextColor());
    setInvalidBackgroundColor(Input::errorBackground());
    setFocusRingColor(Input::background());
    setInvalidFocusRingColor(Styles::Control::errorFocusRingColor());
    setAlignmentRectInsets({2, 2, 2, 2});
    setEdgeInsets({2, 2, 2, 2});
    setBezelImages({{State::default_, "dwk-textfield"},
                    {State::focused | State::invalid, "dwk-textfield-error"},
                    {State::focused, "dwk-textfield-focus"},
                    {State::invalid, "dwk-textfield-error"}});
}

HeaderTextFieldStyle::HeaderTextFieldStyle() {
    setBezelImages({{State::default_, "dwk-textfield-tableheader"},
                    {State::focused | State::invalid, "dwk-textfield-error"},
                    {State::focused, "dwk-textfield-focus"},
                    {State::invalid, "dwk-textfield-error"}});
}

SearchFieldCellStyle::SearchFieldCellStyle() {
    setBezelImages(
        {{State::default_, "dwk-searchfield"}, {State::focused, "dwk-searchfield-focus"}});
}

TextLabelCellStyle::TextLabelCellStyle() {
    setFont(Styles::Label::font());
    setTextColor(Styles::Label::nsTextColor());
    setDisabledTextColor(Styles::Label::disabledTextColor());
    setNoRing(*this);
}

TableRowLabelCellStyle::TableRowLabelCellStyle() {
    using Row = Styles::TableRow;
    setFont(Row::font());
    setTextColor(Row::textColor());
    setSelection(*this, Row::selectedFont(), Row::selectedTextColor(), Row::selectedBackground());
    setNoRing(*this);
}

TableGroupLabelCellStyle::TableGroupLabelCellStyle() {
    using Row = Styles::TableGroupRow;
    setFont(Row::font());
    setTextColor(Row::textColor());
    setSelection(*this, Row::selectedFont(), Row::selectedTextColor(), Row::selectedBackground());
    setNoRing(*this);
}

} // namespace driftwood
