#pragma once

#include "core/srgb_color.hpp"

namespace fernhorn {

/// How a dial wants its value label to look; given as a whole. Sizes and widths are in points. A
/// value.
struct LabelDisplayOptions {
    core::SRGBColor valueColor; ///< of the value and its unit
    double labelFontSize;       ///< of the parameter's name, where a dial shows it
    double valueFontSize;       ///< of the value and its unit
    double editingFontSize;     ///< of the text while a value is typed
    bool showSuffix;            ///< the unit behind the value
    bool showName;              ///< the parameter's name
    double labelWidth;          ///< of the field a value is typed into
};

} // namespace fernhorn
