#pragma once

#include "core/geometry.hpp"

#include <cstdint>

namespace platform {

/// What an event has meant for the press of a button.
enum class PressStep : std::uint8_t {
    none,
    began,
    crossed,   ///< the pointer has left the button, or has come back
    clicked,   ///< it has ended on the button
    cancelled, ///< it has ended elsewhere, or something has ended it
};

/// One press of a button, from the event that begins it to the one that ends it; every `began` is
/// followed by one `clicked` or `cancelled` as long as the owner calls `cancel` before it goes. It
/// knows points, not widgets; each operation takes the button's bounds of now, whose upper and left
/// edges are part of it. A value, for one thread at a time.
class PressTracker {
  public:
    /// From `began` on, wherever the pointer goes.
    [[nodiscard]] bool isTracking() const { return phase_ != Phase::idle; }
    /// The press is on the button now, or a key's.
    [[nodiscard]] bool isInside() const { return phase_ == Phase::inside || phase_ == Phase::key; }
    [[nodiscard]] bool isByKey() const { return phase_ == Phase::key; }

    /// The mouse button goes down. A press that has begun already goes on.
    PressStep press(core::Point point, const core::Rect& bounds);
    /// The mouse moves. When its button turns out to be up, the release went unheard, and the press
    /// is cancelled.
    PressStep move(core::Point point, const core::Rect& bounds, bool isButtonDown = true);
    /// The mouse button goes up.
    PressStep release(core::Point point, const core::Rect& bounds);
    /// A key that presses the button goes down, or up. Only the key that has begun the press ends
    /// it.
    PressStep pressKey(int key);
    PressStep releaseKey(int key);
    /// The press is over without a click: another window came, the button was disabled, the key was
    /// taken away.
    PressStep cancel();

  private:
    enum class Phase : std::uint8_t { idle, inside, outside, key };

    [[nodiscard]] bool isByMouse() const { return isTracking() && !isByKey(); }
    PressStep begin(Phase phase);
    PressStep end(PressStep step);

    Phase phase_ = Phase::idle;
    int key_ = 0; // that has begun the press
};

} // namespace platform
