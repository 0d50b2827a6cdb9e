#include "driftwood/style/button_cell_style.hpp"

#include "driftwood/style/styles.hpp"

namespace driftwood {

using State = StyledControlState;

ButtonCellStyle::ButtonCellStyle() {
    setBackgroundColor(Styles::Control::background());
    setFont(Styles::BaseStyles::mediumFont());
    setBezelImages({{State::default_, "dwk-button"},
                    {State::on, "dwk-button-selected"},
                    {State::highlighted, "dwk-button-down"}});
}

CheckBoxCellStyle::CheckBoxCellStyle() {
    setHighlightedTextColor(textColor());
    setHighlightedBackgroundColor(textBackgroundColor());
    setSelectedBackgroundColor(textBackgroundColor());
    setButtonImages({{State::default_, "dwk-checkbox"},
                     {State::on, "dwk-checkbox-on"},
                     {State::mixed, "dwk-checkbox-mixed"},
                     {State::highlighted, "dwk-checkbox-down"},
                     {State::on | State::highlighted, "dwk-checkbox-on-down"},
                     {State::mixed | State::highlighted, "dwk-checkbox-mixed-down"},
                     {State::selected, "dwk-checkbox-down"},
                     {State::on | State::selected, "dwk-checkbox-on-down"},
                     {State::mixed | State::selected, "dwk-checkbox-mixed-down"}});
}

FavouriteCheckBoxCellStyle::FavouriteCheckBoxCellStyle() {
    setButtonImages(
        {{State::default_, "organiser-icon-star-empty"}, {State::on, "organiser-icon-star"}});
}

BackButtonCellStyle::BackButtonCellStyle() {
    setBezelImages({{State::default_, "organiser-navbar-back"},
                    {State::on, "organiser-navbar-back-down"},
                    {State::highlighted, "organiser-navbar-back-down"}});
}

ToolButtonCellStyle::ToolButtonCellStyle() {
    setBezelImages({{State::default_, "corner-tool-background"},
                    {State::on, "corner-tool-background-selected"},
                    {State::highlighted, "corner-tool-background-down"}});
}

} // namespace driftwood
