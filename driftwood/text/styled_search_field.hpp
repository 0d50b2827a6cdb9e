#pragma once

#include "driftwood/text/styled_text_field.hpp"

// All of this is for the main thread.
namespace driftwood {

/// Draws a search field: as a text field, with a glass before the text. Where one reads from the
/// right everything is mirrored; the rectangles are given as if one did not.
class StyledSearchFieldCell
    : public StyledCell<StyledSearchFieldCell, StyledTextFieldCell, SearchFieldCellStyle> {
  public:
    using StyledCell::StyledCell;

    [[nodiscard]] bool showsSearchIcon() const { return showsSearchIcon_; }
    void setShowsSearchIcon(bool shows) { showsSearchIcon_ = shows; }
    [[nodiscard]] bool hasCancelButton() const { return hasCancelButton_; }
    void setHasCancelButton(bool has) { hasCancelButton_ = has; }
    /// The view that it is in mirrors it; told by the field.
    void setRightToLeft(bool isRightToLeft) { isRightToLeft_ = isRightToLeft; }

    [[nodiscard]] const std::optional<QString>& internalPlaceholderString() const {
        return internalPlaceholder_;
    }
    void setPlaceholderString(const QString& text) override;

    [[nodiscard]] core::Rect searchButtonRect(const core::Rect& bounds) const;
    /// Zero without a cancel button.
    [[nodiscard]] core::Rect cancelButtonRect(const core::Rect& bounds) const;
    /// Without a cancel button it is as wide as the search button.
    [[nodiscard]] core::Rect searchTextRect(const core::Rect& bounds) const;
    [[nodiscard]] core::Rect textRect(const core::Rect& bounds) const override;

  protected:
    [[nodiscard]] QColor placeholderColor(const platform::CellCanvas& canvas) const override {
        return textColor(canvas);
    }
    void drawContent(const core::Rect& frame, const platform::CellCanvas& canvas) const override;

  private:
    std::optional<QString> internalPlaceholder_;
    bool showsSearchIcon_ = true;
    bool hasCancelButton_ = true;
    bool isRightToLeft_ = false;
};

/// A field for searching. It sends its action with every change of its text, which must not destroy
/// the field then; a button, or Escape, clears it.
class StyledSearchField : public TextFieldWithCell<StyledSearchFieldCell, StyledTextField> {
  public:
    explicit StyledSearchField(QWidget* parent = nullptr);

    [[nodiscard]] QString spokenName() const override;

  protected:
    void textDidChange() override;
    void textDidEndEditing() override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool handleEvent(QEvent* event) override;
    void textWasReplaced() override;

  private:
    class CancelButton;

    void clear();
    void layOutButton();

    CancelButton* button_ = nullptr; // a child, made with the first text
};

} // namespace driftwood
