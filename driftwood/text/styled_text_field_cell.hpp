#pragma once

#include "driftwood/bridges/styled_class.hpp"
#include "driftwood/controls/styled_cell.hpp"
#include "driftwood/style/styled_control.hpp"
#include "driftwood/style/text_field_cell_style.hpp"
#include "platform/controls/text_field_cell.hpp"

#include <optional>

// All of this is for the main thread.
namespace driftwood {

/// A line with all that it is drawn with.
struct AttributedLine {
    platform::LineRun run;
    platform::LineAlignment alignment = platform::LineAlignment::natural;
    platform::LineEliding lineBreakMode = platform::LineEliding::tail;
    bool allowsTighteningForTruncation = false;
};

/// Draws a text field from a `TextFieldCellStyle`: ground or bezel, outline, text.
class StyledTextFieldCell : public platform::TextFieldCell,
                            public StyledControl,
                            public Selectable,
                            public StyledClass<StyledTextFieldCell, TextFieldCellStyle> {
  public:
    explicit StyledTextFieldCell(const QString& text = {});

    [[nodiscard]] bool isSelected() const override { return isSelected_; }
    void setSelected(bool isSelected) override { isSelected_ = isSelected; }
    [[nodiscard]] bool verticallyCenter() const { return verticallyCenter_; }
    void setVerticallyCenter(bool centers) { verticallyCenter_ = centers; }
    /// Only while an editor is being laid over the cell.
    [[nodiscard]] bool isBeingEdited() const { return isBeingEdited_; }
    /// Only while an editor is being laid over the cell to select a part of its text.
    [[nodiscard]] bool isBeingSelected() const { return isBeingSelected_; }

    [[nodiscard]] StyledControlState controlState() const override;
    [[nodiscard]] TextFieldCellStyle& controlStyle() const override { return style(); }
    [[nodiscard]] BackgroundStyle backgroundStyle() const { return backgroundStyle_; }
    void setBackgroundStyle(BackgroundStyle style) { backgroundStyle_ = style; }
    [[nodiscard]] BackgroundStyle interiorBackgroundStyle() const {
        return controlStyle().interiorBackgroundStyle();
    }
    /// A line in the cell's font, at its side; without a colour in that of the text.
    [[nodiscard]] AttributedLine placeholderLine(const QString& text,
                                                 const std::optional<Color>& color = {}) const;

    /// Within the padding where the cell has a frame, but the bounds themselves while an editor is
    /// being laid over it. It moves by the bottom padding, not by the top one.
    [[nodiscard]] core::Rect drawingRect(const core::Rect& bounds) const override;
    [[nodiscard]] core::Rect titleRect(const core::Rect& bounds) const override;
    /// Not below what the bezel's image is high.
    [[nodiscard]] core::Size cellSize() const override;
    [[nodiscard]] QFont font() const override;
    void edit(const core::Rect& frame, QLineEdit& editor) override;
    void select(const core::Rect& frame, QLineEdit& editor, int start, int length) override;
    void setUpFieldEditorAttributes(QLineEdit& editor) const override;

  protected:
    [[nodiscard]] virtual const Validating* validating() const { return nullptr; }

    [[nodiscard]] core::EdgeInsets textInsets() const override;
    [[nodiscard]] QColor textColor(const platform::CellCanvas& canvas) const override;
    [[nodiscard]] QColor placeholderColor(const platform::CellCanvas& canvas) const override;
    void drawInterior(const core::Rect& frame, const platform::CellCanvas& canvas) const override;
    /// What stands on the ground: here the text.
    virtual void drawContent(const core::Rect& frame, const platform::CellCanvas& canvas) const {
        drawText(frame, canvas);
    }

  private:
    void drawGround(const core::Rect& frame, const platform::CellCanvas& canvas) const;

    BackgroundStyle backgroundStyle_;
    bool isSelected_ = false;
    bool verticallyCenter_ = true;
    bool isBeingEdited_ = false;
    bool isBeingSelected_ = false;
};

class StyledTextLabelCell
    : public StyledCell<StyledTextLabelCell, StyledTextFieldCell, TextLabelCellStyle> {
  public:
    using StyledCell::StyledCell;
};

class StyledTableRowLabelCell
    : public StyledCell<StyledTableRowLabelCell, StyledTextFieldCell, TableRowLabelCellStyle> {
  public:
    using StyledCell::StyledCell;
};

class StyledTableGroupRowLabelCell
    : public StyledCell<StyledTableGroupRowLabelCell, StyledTextFieldCell,
                        TableGroupLabelCellStyle> {
  public:
    using StyledCell::StyledCell;
};

} // namespace driftwood
