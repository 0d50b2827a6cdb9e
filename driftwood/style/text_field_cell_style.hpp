#pragma once

#include "driftwood/style/control_style.hpp"

// All of this is for the main thread.
namespace driftwood {

/// The style of text fields. Their focus shows in the bezel, so the ring is clear until the text is
/// invalid. An invalid text is white on the error's colour, as in other controls: the text's own
/// error colour (`Styles::TextInput::errorTextColor`) is that of its ground, and could not be read
/// on it.
class TextFieldCellStyle : public ControlStyle {
  public:
    TextFieldCellStyle();

    [[nodiscard]] const Color& placeholderTextColor() const { return placeholderTextColor_; }
    void setPlaceholderTextColor(Color color) { setLook(placeholderTextColor_, std::move(color)); }

    [[nodiscard]] const Color& placeholderBackground() const { return placeholderBackground_; }
    void setPlaceholderBackground(Color color) {
        setLook(placeholderBackground_, std::move(color));
    }

    /// From the cell's edges to its text.
    [[nodiscard]] const core::EdgeInsets& padding() const { return padding_; }
    void setPadding(const core::EdgeInsets& insets) { setLayout(padding_, insets); }

  private:
    Color placeholderTextColor_;
    Color placeholderBackground_;
    core::EdgeInsets padding_;
};

/// The style of fields in a table's header.
class HeaderTextFieldStyle : public TextFieldCellStyle {
  public:
    HeaderTextFieldStyle();
};

/// The style of search fields.
class SearchFieldCellStyle : public TextFieldCellStyle {
  public:
    SearchFieldCellStyle();
};

/// The style of labels: never a ring.
class TextLabelCellStyle : public TextFieldCellStyle {
  public:
    TextLabelCellStyle();
};

/// The style of the texts in a table's rows.
class TableRowLabelCellStyle : public TextFieldCellStyle {
  public:
    TableRowLabelCellStyle();
};

/// The style of the texts in the rows that head a group.
class TableGroupLabelCellStyle : public TextFieldCellStyle {
  public:
    TableGroupLabelCellStyle();
};

} // namespace driftwood
