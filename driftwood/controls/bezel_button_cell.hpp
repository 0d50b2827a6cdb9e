#pragma once

#include "driftwood/style/button_cell_style.hpp"
#include "driftwood/style/styled_control.hpp"
#include "platform/controls/button_cell.hpp"

// All of this is for the main thread.
namespace driftwood {

/// What the kit's push buttons have in common: bezel, image and title are drawn from a
/// `ButtonCellStyle` for the state of the moment. The insets are asked for one by one, since not
/// every class takes them from its style.
class BezelButtonCell : public platform::ButtonCell, public StyledControl, public Selectable {
  public:
    using platform::ButtonCell::ButtonCell;

    [[nodiscard]] bool isSelected() const override { return isSelected_; }
    void setSelected(bool isSelected) override { isSelected_ = isSelected; }
    [[nodiscard]] bool verticallyCenterTitle() const { return verticallyCenterTitle_; }
    void setVerticallyCenterTitle(bool centers) { verticallyCenterTitle_ = centers; }

    [[nodiscard]] StyledControlState controlState() const override {
        return styledControlState(cellState(), this);
    }
    [[nodiscard]] ButtonCellStyle& controlStyle() const override = 0;
    [[nodiscard]] virtual const core::EdgeInsets& imageEdgeInsets() const = 0;
    [[nodiscard]] virtual const core::EdgeInsets& titleEdgeInsets() const = 0;
    [[nodiscard]] virtual const core::EdgeInsets& edgeInsets() const = 0;

    [[nodiscard]] core::Rect drawingRect(const core::Rect& bounds) const override;
    [[nodiscard]] core::Rect imageRect(const core::Rect& bounds, bool isRightToLeft) const override;
    [[nodiscard]] core::Rect titleRect(const core::Rect& bounds, bool isRightToLeft) const override;
    [[nodiscard]] core::Rect focusRingMaskBounds(const core::Rect& frame) const override;
    [[nodiscard]] QFont titleFont() const override;

  protected:
    void drawBezel(const core::Rect& frame, const platform::CellCanvas& canvas) const override;
    void drawImage(const platform::ImageAsset& image, const core::Rect& frame,
                   const platform::CellCanvas& canvas) const override;
    void drawTitle(const QString& title, const core::Rect& frame,
                   const platform::CellCanvas& canvas) const override;

    [[nodiscard]] double bezelOpacity() const { return cellState().isEnabled ? 1.0 : 0.5; }

  private:
    bool isSelected_ = false;
    bool verticallyCenterTitle_ = true;
};

} // namespace driftwood
