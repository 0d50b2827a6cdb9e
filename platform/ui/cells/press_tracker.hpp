#pragma once

#include "core/geometry.hpp"

namespace platform {

/// Follows one press of a button from its beginning to its end. It knows points, not widgets; each
/// operation takes the button's bounds of now. A button is pressed as long as the press is inside
/// of it, and clicked when it ends there. A value.
class PressTracker {
  public:
    /// What an operation has changed.
    enum class Result { nothing, changed, clicked };

    [[nodiscard]] bool isPressed() const { return phase_ == Phase::inside || phase_ == Phase::key; }
    [[nodiscard]] bool isTracking() const { return phase_ != Phase::idle; }

    /// The mouse button goes down. A press that has begun already goes on.
    Result press(core::Point point, const core::Rect& bounds);
    /// The mouse moves; out of the button and in again, the press is not over.
    Result move(core::Point point, const core::Rect& bounds);
    /// The mouse button goes up.
    Result release(core::Point point, const core::Rect& bounds);
    /// The key that presses the button goes down, and up.
    Result pressKey();
    Result releaseKey();
    /// The press is over without a click: another window came, the button was disabled, the key was
    /// taken away.
    Result cancel();

  private:
    enum class Phase { idle, inside, outside, key };

    Result enter(Phase phase);

    Phase phase_ = Phase::idle;
};

} // namespace platform
