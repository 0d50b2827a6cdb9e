#pragma once

#include "platform/ui/cells/press_tracker.hpp"

#include <cstdint>

namespace fernhorn {

/// What an event has meant for the press of a button.
enum class PressStep : std::uint8_t {
    none,
    began,
    clicked,   ///< it has ended on the button
    cancelled, ///< it has ended elsewhere, or something has ended it
};

/// One press of a button, from the event that begins it to the one that ends it; in between the
/// button stays pressed wherever the pointer goes. Every `began` is followed by exactly one
/// `clicked` or `cancelled` as long as the owner calls `cancel` before it goes. A value that knows
/// points, not widgets.
class ButtonPress {
  public:
    [[nodiscard]] bool isPressed() const { return tracker_.isTracking(); }

    /// The mouse button goes down, or up, at a point of a button of that size. The upper and left
    /// edges are part of it. A press that has begun goes on.
    [[nodiscard]] PressStep press(core::Point point, core::Size button);
    [[nodiscard]] PressStep release(core::Point point, core::Size button);
    /// The mouse moves. When its button turns out to be up, the release was not heard.
    [[nodiscard]] PressStep moveMouse(bool isButtonDown);
    /// The key `key` goes down, or up. Only the key that has begun the press ends it.
    [[nodiscard]] PressStep pressKey(int key);
    [[nodiscard]] PressStep releaseKey(int key);
    [[nodiscard]] PressStep cancel();

  private:
    [[nodiscard]] PressStep step(bool wasPressed, platform::PressTracker::Result result) const;

    platform::PressTracker tracker_;
    int key_ = 0; ///< that has begun the press; 0 for the mouse
};

} // namespace fernhorn
