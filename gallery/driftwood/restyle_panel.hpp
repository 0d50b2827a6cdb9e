#pragma once

#include "driftwood/style/button_cell_style.hpp"

class QWidget;

namespace gallery {

/// Controls that edit a shared style: font, colours, images and insets. The style is as it was once
/// the panel is gone. The style outlives the panel.
QWidget* makeRestylePanel(driftwood::ButtonCellStyle& style);

} // namespace gallery
