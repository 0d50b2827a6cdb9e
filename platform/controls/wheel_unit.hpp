#pragma once

#include "core/geometry.hpp"

namespace platform {

// How far a wheel or two fingers have turned, in one unit for every control. Pure functions, any
// thread.

/// A turn as the system tells it: in eighths of a degree, 120 for a notch of an ordinary mouse,
/// parts of it for finer wheels and touch pads. Upwards and leftwards are above 0.
struct WheelTurn {
    core::Point angle;
    bool isInverted = false;  ///< natural scrolling: the content follows the fingers
    bool isRollingOn = false; ///< by itself, after the fingers are gone

    friend bool operator==(const WheelTurn&, const WheelTurn&) = default;
};

/// The unit of `scrollingDelta`, by the notch.
inline constexpr double scrollingPerNotch = 10;

/// The notches of a turn along both axes, as the system tells them.
[[nodiscard]] constexpr core::Point wheelNotches(const WheelTurn& turn) {
    constexpr double anglePerNotch = 120;
    return {turn.angle.x / anglePerNotch, turn.angle.y / anglePerNotch};
}

/// The notches that a knob turns upwards, as the hand moves: not the other way round where
/// scrolling is natural, not what rolls on by itself, and also from a wheel that the system turns
/// sideways while a modifier key is held.
[[nodiscard]] constexpr double notchesByHand(const WheelTurn& turn) {
    if (turn.isRollingOn) {
        return 0;
    }
    const core::Point notches = wheelNotches(turn);
    const double upwards = notches.y != 0 ? notches.y : notches.x;
    return turn.isInverted ? -upwards : upwards;
}

/// How far content would scroll, in points, and what sliders count in: 10 a notch, so that one
/// notch takes a slider through a fortieth of its range, which is seen.
[[nodiscard]] constexpr core::Point scrollingDelta(const WheelTurn& turn) {
    const core::Point notches = wheelNotches(turn);
    return {notches.x * scrollingPerNotch, notches.y * scrollingPerNotch};
}

} // namespace platform
