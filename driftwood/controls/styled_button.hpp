#pragma once

#include "driftwood/controls/bezel_button_cell.hpp"
#include "driftwood/controls/style_followers.hpp"
#include "driftwood/controls/styled_cell.hpp"
#include "platform/ui/cells/cell_button.hpp"

#include <optional>

namespace driftwood {

/// The cell of the kit's push buttons; its insets are those of the style.
class StyledButtonCell : public StyledCell<StyledButtonCell, BezelButtonCell, ButtonCellStyle> {
  public:
    using StyledCell::StyledCell;

    [[nodiscard]] const core::EdgeInsets& imageEdgeInsets() const override {
        return controlStyle().imageEdgeInsets();
    }
    [[nodiscard]] const core::EdgeInsets& titleEdgeInsets() const override {
        return controlStyle().titleEdgeInsets();
    }
    [[nodiscard]] const core::EdgeInsets& edgeInsets() const override {
        return controlStyle().edgeInsets();
    }
};

/// A push button in the look of the kit. With a border it is exactly as tall as its bezel.
class StyledButton : public platform::CellButton, public Selectable {
  public:
    explicit StyledButton(const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] StyledButtonCell& styledCell() const { return styledCell_; }

    [[nodiscard]] bool isSelected() const override { return styledCell_.isSelected(); }
    void setSelected(bool isSelected) override;

    /// In points; takes the place of the natural width.
    [[nodiscard]] std::optional<double> fixedWidth() const { return fixedWidth_; }
    void setFixedWidth(std::optional<double> width);

    [[nodiscard]] core::EdgeInsets alignmentRectInsets() const override;
    [[nodiscard]] core::Size intrinsicContentSize() const override;

  protected:
    StyledButton(std::unique_ptr<StyledButtonCell> cell, QWidget* parent);

    [[nodiscard]] QColor focusRingColor() const override;

  private:
    StyledButtonCell& styledCell_;
    StyleFollower follower_;
    std::optional<double> fixedWidth_;
};

} // namespace driftwood
