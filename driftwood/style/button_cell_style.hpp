#pragma once

#include "driftwood/style/control_style.hpp"

// All of this is for the main thread.
namespace driftwood {

/// The style of push buttons.
class ButtonCellStyle : public ControlStyle {
  public:
    ButtonCellStyle();

    /// From the cell's edges to its image.
    [[nodiscard]] const core::EdgeInsets& imageEdgeInsets() const { return imageEdgeInsets_; }
    void setImageEdgeInsets(const core::EdgeInsets& insets) { setLayout(imageEdgeInsets_, insets); }

    /// From the cell's edges to its title.
    [[nodiscard]] const core::EdgeInsets& titleEdgeInsets() const { return titleEdgeInsets_; }
    void setTitleEdgeInsets(const core::EdgeInsets& insets) { setLayout(titleEdgeInsets_, insets); }

  private:
    core::EdgeInsets imageEdgeInsets_;
    core::EdgeInsets titleEdgeInsets_;
};

/// The style of check boxes: pressed or selected, one keeps the colours of its text.
class CheckBoxCellStyle : public ButtonCellStyle {
  public:
    CheckBoxCellStyle();

    /// The box itself, by state.
    [[nodiscard]] const StateImages& buttonImages() const { return buttonImages_; }
    void setButtonImages(StateImages images) { setLayout(buttonImages_, std::move(images)); }

    /// The best match in `buttonImages`, null when nothing matches.
    [[nodiscard]] const Image& image(StyledControlState state) const {
        return buttonImages_.image(state);
    }

  private:
    StateImages buttonImages_;
};

/// Stars in place of boxes.
class FavouriteCheckBoxCellStyle : public CheckBoxCellStyle {
  public:
    FavouriteCheckBoxCellStyle();
};

/// The style of the button that leads back.
class BackButtonCellStyle : public ButtonCellStyle {
  public:
    BackButtonCellStyle();
};

/// The style of buttons in the corner of a panel; a kind of its own, so that it can be restyled.
class CornerButtonCellStyle : public ButtonCellStyle {};

/// The style of tool buttons.
class ToolButtonCellStyle : public ButtonCellStyle {
  public:
    ToolButtonCellStyle();
};

} // namespace driftwood
