#include "driftwood/style/pop_up_cell_style.hpp"

namespace driftwood {
namespace {

using State = StyledControlState;

/// What everything with an arrow at its trailing end has in common.
void leaveRoomForArrow(ButtonCellStyle& style) {
    style.setAlignmentRectInsets({3, 2, 3, 2});
    style.setEdgeInsets({3, 0, 2, 12});
    style.setSelectedTextColor(style.textColor());
    style.setTitleEdgeInsets({});
}

} // namespace

ComboBoxStyle::ComboBoxStyle() {
    leaveRoomForArrow(*this);
}

PopUpButtonCellStyle::PopUpButtonCellStyle() {
    leaveRoomForArrow(*this);
    setBezelImages({{State::default_, "dwk-popup"}, {State::highlighted, "dwk-popup-down"}});
}

ToolPopUpButtonCellStyle::ToolPopUpButtonCellStyle() {
    setBezelImages(
        {{State::default_, "dwk-popup-tool"}, {State::highlighted, "dwk-popup-tool-down"}});
}

StyledPopDownButtonCellStyle::StyledPopDownButtonCellStyle() {
    leaveRoomForArrow(*this);
    setBezelImages({{State::default_, "dwk-popdown"}, {State::highlighted, "dwk-popdown-down"}});
}

} // namespace driftwood
