#pragma once

#include "driftwood/controls/styled_button.hpp"

// All of this is for the main thread.
namespace driftwood {

/// Draws the box of its style beside the title, and no bezel.
class StyledCheckBoxCell
    : public StyledCell<StyledCheckBoxCell, StyledButtonCell, CheckBoxCellStyle> {
  public:
    explicit StyledCheckBoxCell(const QString& title = {});

    static constexpr core::Size imageSize{16, 16};
    static constexpr double xOffset = -2; ///< from the leading edge to the box

    /// A click never leads to mixed.
    [[nodiscard]] platform::StateValue nextState() const override;
    [[nodiscard]] core::Rect imageRect(const core::Rect& bounds, bool isRightToLeft) const override;
    [[nodiscard]] core::Rect titleRect(const core::Rect& bounds, bool isRightToLeft) const override;
    [[nodiscard]] core::Size cellSize() const override;

  protected:
    void drawInterior(const core::Rect& frame, const platform::CellCanvas& canvas) const override;
};

/// A check box in the kit's style; screen readers are told that it is one.
class StyledCheckBox : public StyledButton {
  public:
    explicit StyledCheckBox(const QString& title, QWidget* parent = nullptr)
        : StyledCheckBox(std::make_unique<StyledCheckBoxCell>(title), parent) {}

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::CheckBox;
    }

  protected:
    StyledCheckBox(std::unique_ptr<StyledCheckBoxCell> cell, QWidget* parent)
        : StyledButton(std::move(cell), parent) {}
};

/// The check box cell with the style of favourites.
class FavouriteCheckBoxCell
    : public StyledCell<FavouriteCheckBoxCell, StyledCheckBoxCell, FavouriteCheckBoxCellStyle> {
  public:
    using StyledCell::StyledCell;
};

/// A star, which fades while it is pressed.
class FavouriteCheckBox : public StyledCheckBox {
  public:
    explicit FavouriteCheckBox(const QString& title, QWidget* parent = nullptr)
        : StyledCheckBox(std::make_unique<FavouriteCheckBoxCell>(title), parent) {}

  protected:
    void trackingDidChange(bool isTracking) override { setAlphaValue(isTracking ? 0.5 : 1); }
};

} // namespace driftwood
