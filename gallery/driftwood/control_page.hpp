#pragma once

#include "driftwood/style/button_cell_style.hpp"
#include "platform/controls/cell_button.hpp"

#include <functional>
#include <vector>

class QLabel;

namespace gallery {

/// What the page of a control class is made of.
struct ControlPage {
    /// Makes a control as it is shown in every place of the page; called many times.
    std::function<platform::CellButton*()> make;
    /// The style that all of them share; null for classes without one.
    driftwood::ButtonCellStyle* style = nullptr;
    /// The states that a click or a program can bring it to.
    std::vector<platform::StateValue> states{platform::StateValue::off, platform::StateValue::on,
                                             platform::StateValue::mixed};
    /// Shows one as it looks while it is pressed.
    std::function<void(platform::CellButton&)> press = [](platform::CellButton& button) {
        button.setHighlighted(true);
    };
    /// What to try with the live one.
    QString hint;
    /// Gives the live one what its class has beside a click; it reports to the label.
    std::function<void(platform::CellButton&, QLabel& report)> enliven = {};
};

/// Every combination of states in both directions of reading, a live control with switches, and a
/// panel that restyles the class.
void buildControlPage(QWidget& view, const ControlPage& page);

} // namespace gallery
