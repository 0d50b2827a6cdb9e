#pragma once

#include "driftwood/style/button_cell_style.hpp"

// All of this is for the main thread.
namespace driftwood {

/// The style of combo boxes.
class ComboBoxStyle : public ButtonCellStyle {
  public:
    ComboBoxStyle();
};

/// The style of buttons that choose from a menu.
class PopUpButtonCellStyle : public ButtonCellStyle {
  public:
    PopUpButtonCellStyle();
};

/// The same among tools.
class ToolPopUpButtonCellStyle : public PopUpButtonCellStyle {
  public:
    ToolPopUpButtonCellStyle();
};

/// The style of buttons that open a menu of commands.
class StyledPopDownButtonCellStyle : public ButtonCellStyle {
  public:
    StyledPopDownButtonCellStyle();
};

} // namespace driftwood
