#pragma once

#include "core/geometry.hpp"

#include <algorithm>

namespace fernhorn {

/// Where the two layers of a dial lie: the knob and the label around one centre, the knob shifted
/// upwards, so that it may stand out of the layers' common height at the top.
struct DialLayout {
    core::Rect knob;
    core::Point labelCenter;
};

/// How far the knob stands out.
[[nodiscard]] constexpr double dialOverhang(core::Size knob, double lift, double labelHeight) {
    return std::max(0.0, lift - (std::max(knob.height, labelHeight) - knob.height) / 2);
}

/// The layers within a widget that has room for the overhang at its top.
[[nodiscard]] constexpr DialLayout layOutDial(core::Size widget, core::Size knob, double lift,
                                              double labelHeight) {
    const double overhang = dialOverhang(knob, lift, labelHeight);
    const core::Point center{widget.width / 2, overhang + (widget.height - overhang) / 2};
    return {{{center.x - knob.width / 2, center.y - knob.height / 2 - lift}, knob}, center};
}

} // namespace fernhorn
