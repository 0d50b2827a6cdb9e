#pragma once

#include "driftwood/controls/styled_button.hpp"

namespace driftwood {

/// The cell of a back button: its bezel is mirrored where text runs from right to left.
class BackButtonCell : public StyledCell<BackButtonCell, StyledButtonCell, BackButtonCellStyle> {
  public:
    using StyledCell::StyledCell;

  protected:
    /// Back is where one has read from.
    void drawBezel(const core::Rect& frame, const platform::CellCanvas& canvas) const override {
        platform::CellCanvas mirrored = canvas;
        mirrored.mirrorsImages = canvas.isRightToLeft;
        StyledButtonCell::drawBezel(frame, mirrored);
    }
};

/// The button that leads back. It can be faded, and is hidden once nothing of it is left to see;
/// its place in a layout stays its own. Main thread.
class BackButton : public StyledButton {
  public:
    explicit BackButton(const QString& title, QWidget* parent = nullptr)
        : StyledButton(std::make_unique<BackButtonCell>(title), parent) {
        QSizePolicy policy = sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        setSizePolicy(policy);
    }

    void setAlphaValue(double alpha) override {
        StyledButton::setAlphaValue(alpha);
        setHidden(alphaValue() == 0);
    }

    [[nodiscard]] core::EdgeInsets alignmentRectInsets() const override { return {6, 5, 4, 4}; }
};

} // namespace driftwood
