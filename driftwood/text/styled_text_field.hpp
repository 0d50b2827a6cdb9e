#pragma once

#include "driftwood/bridges/style_follower.hpp"
#include "driftwood/text/first_responder_aware_text_field.hpp"
#include "driftwood/text/styled_text_field_cell.hpp"

#include <concepts>
#include <optional>

// All of this is for the main thread.
namespace driftwood {

/// A text field drawn from the style of its cell's class.
class StyledTextField : public FirstResponderAwareTextField, public Selectable {
  public:
    using Cell = StyledTextFieldCell;

    /// In points, `verticalInset` is the room above and below its alignment lines where it has a
    /// frame. A field starts with a bezel and a ground, and can be edited.
    explicit StyledTextField(QWidget* parent = nullptr, double verticalInset = 0);
    explicit StyledTextField(const QRect& frame, double verticalInset, QWidget* parent = nullptr);

    [[nodiscard]] double verticalInset() const { return verticalInset_; }
    void setVerticalInset(double inset);
    [[nodiscard]] bool verticallyCenter() const { return styledCell().verticallyCenter(); }
    void setVerticallyCenter(bool centers);
    [[nodiscard]] bool isSelected() const override { return styledCell().isSelected(); }
    void setSelected(bool isSelected) override;

    [[nodiscard]] StyledTextFieldCell& styledCell() {
        return static_cast<StyledTextFieldCell&>(cell());
    }
    [[nodiscard]] const StyledTextFieldCell& styledCell() const {
        return static_cast<const StyledTextFieldCell&>(cell());
    }
    /// Another cell in place of the one of now; its text is the field's. One that is not of the
    /// field's `Cell` class stops the program.
    void setCell(std::unique_ptr<platform::TextFieldCell> cell);

    [[nodiscard]] core::EdgeInsets alignmentRectInsets() const override;
    [[nodiscard]] core::Size intrinsicContentSize() const override;
    /// From the top of the alignment rectangle to the lower edge of the text, and from there to its
    /// bottom; see `firstBaselineOffset`.
    [[nodiscard]] double firstBaselineOffsetFromTop() const;
    [[nodiscard]] double lastBaselineOffsetFromBottom() const;

    [[nodiscard]] std::optional<bool> accessibleSelection() const override;

  protected:
    /// For derived classes with a cell of their own.
    explicit StyledTextField(std::unique_ptr<StyledTextFieldCell> cell, QWidget* parent);

    [[nodiscard]] virtual bool acceptsCell(const platform::TextFieldCell& cell) const;
    /// The size of the bezel's image for the state of now; nothing without a frame or an image.
    [[nodiscard]] std::optional<core::Size> bezelSize() const;

  private:
    void followStyle();

    double verticalInset_ = 0;
    std::optional<StyleFollower> follower_;
};

/// A field of the kind of `Base` with a cell class of its own.
template<std::derived_from<StyledTextFieldCell> CellClass, std::derived_from<StyledTextField> Base>
class TextFieldWithCell : public Base {
  public:
    using Cell = CellClass;

    [[nodiscard]] Cell& styledCell() { return static_cast<Cell&>(this->cell()); }
    [[nodiscard]] const Cell& styledCell() const { return static_cast<const Cell&>(this->cell()); }

  protected:
    explicit TextFieldWithCell(QWidget* parent)
        : TextFieldWithCell(std::make_unique<Cell>(), parent) {}
    explicit TextFieldWithCell(std::unique_ptr<Cell> cell, QWidget* parent)
        : Base(std::move(cell), parent) {}

    [[nodiscard]] bool acceptsCell(const platform::TextFieldCell& cell) const override {
        return dynamic_cast<const Cell*>(&cell) != nullptr;
    }
};

/// A field that is as wide as its text.
class WidthResizingTextField : public StyledTextField {
  public:
    explicit WidthResizingTextField(QWidget* parent = nullptr);

    [[nodiscard]] core::Size intrinsicContentSize() const override;

  protected:
    explicit WidthResizingTextField(std::unique_ptr<StyledTextFieldCell> cell, QWidget* parent);

    void textDidChange() override;
};

/// What the labels have in common: a text that is only shown, without ground, bezel or keyboard,
/// aligned by the insets of the style.
template<std::derived_from<StyledTextFieldCell> CellClass, std::derived_from<StyledTextField> Base>
class BasicStyledLabel : public TextFieldWithCell<CellClass, Base> {
  public:
    [[nodiscard]] core::EdgeInsets alignmentRectInsets() const override {
        return this->styledCell().controlStyle().alignmentRectInsets();
    }
    [[nodiscard]] core::Size intrinsicContentSize() const override {
        const core::Size size = platform::TextField::intrinsicContentSize();
        const std::optional<core::Size> bezel = this->bezelSize();
        return bezel ? core::inset(core::componentwiseMax(size, *bezel), alignmentRectInsets())
                     : size;
    }

  protected:
    explicit BasicStyledLabel(const QString& text, QWidget* parent)
        : TextFieldWithCell<CellClass, Base>(parent) {
        this->setBezeled(false);
        this->setDrawsBackground(false);
        this->setSelectable(false);
        this->setStringValue(text);
    }
};

/// A line of text beside or above something.
class StyledTextLabel : public BasicStyledLabel<StyledTextLabelCell, StyledTextField> {
  public:
    explicit StyledTextLabel(const QString& text = {}, QWidget* parent = nullptr)
        : BasicStyledLabel(text, parent) {}
};

/// The text of a table's row.
class StyledTableRowLabel
    : public BasicStyledLabel<StyledTableRowLabelCell, WidthResizingTextField> {
  public:
    explicit StyledTableRowLabel(const QString& text = {}, QWidget* parent = nullptr)
        : BasicStyledLabel(text, parent) {}
};

/// The text of a row that heads a group.
class StyledTableGroupRowLabel
    : public BasicStyledLabel<StyledTableGroupRowLabelCell, WidthResizingTextField> {
  public:
    explicit StyledTableGroupRowLabel(const QString& text = {}, QWidget* parent = nullptr)
        : BasicStyledLabel(text, parent) {}
};

/// Where y grows in the coordinates of a view: downwards where it is flipped.
enum class ViewOrientation { flipped, upright };

/// The distance from the top of the alignment rectangle to the lower edge of the title rectangle,
/// which is taken for the baseline. The insets count with another sign in upright views; layouts
/// rely on both.
[[nodiscard]] double firstBaselineOffset(const core::Rect& bounds, const core::Rect& title,
                                         const core::EdgeInsets& insets,
                                         ViewOrientation orientation);
/// The same from the bottom.
[[nodiscard]] double lastBaselineOffset(const core::Rect& bounds, const core::Rect& title,
                                        const core::EdgeInsets& insets,
                                        ViewOrientation orientation);

/// Nothing: it is there for callers of other platforms, where turning a field to and fro clears the
/// remains of a focus ring; here no ring is drawn outside of the field, so that none remain.
inline void focusRingClearingWorkaround(platform::TextField& /*field*/) {}

} // namespace driftwood
