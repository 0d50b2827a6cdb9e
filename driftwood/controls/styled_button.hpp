#pragma once

#include "driftwood/controls/bezel_button_cell.hpp"
#include "driftwood/controls/kit_control.hpp"
#include "driftwood/controls/styled_cell.hpp"
#include "platform/controls/cell_button.hpp"

namespace driftwood {

/// The cell of the kit's push buttons; its insets are those of the style. Main
/// thread.
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

/// A push button in the look of the kit. With a border it is exactly as tall as its bezel. Main
/// thread.
class StyledButton : public KitControl<platform::CellButton, StyledButtonCell> {
  public:
    explicit StyledButton(const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] core::EdgeInsets alignmentRectInsets() const override;
    [[nodiscard]] core::Size intrinsicContentSize() const override;

  protected:
    using KitControl::KitControl;
};

} // namespace driftwood
