#pragma once

#include "platform/controls/held_key.hpp"
#include "platform/controls/press_tracker.hpp"

#include <Qt>

class QEvent;

namespace platform {

/// Whether an event takes a press, or any tracking, away from its widget: the keyboard or the
/// window went elsewhere, the widget was hidden or disabled, the mouse was taken. A pop-up only
/// borrows the keyboard: the mouse goes on; `isByKey` says that the press is a key's, whose release
/// would go to the pop-up.
[[nodiscard]] bool endsTracking(const QEvent& event, bool isByKey);

/// Whether a key presses buttons: Space, Select, Return and Enter.
[[nodiscard]] bool isPressKey(int key);

/// What an event was for a button.
struct PressAnswer {
    PressStep step = PressStep::none;
    bool isTaken = false; ///< it is dealt with; otherwise the views behind may want it
};

/// A press of a widget by mouse and keyboard, out of its events: one table for all buttons. The
/// left mouse button, Space, Select, Return and Enter press and release, Escape cancels. Control,
/// Alt and Meta make a shortcut of a key that goes down; a release is a release whatever came
/// meanwhile. The widget needs mouse tracking, for releases that it never heard. Main thread.
class PressInput {
  public:
    [[nodiscard]] const PressTracker& press() const { return press_; }
    [[nodiscard]] PressTracker& press() { return press_; }

    /// `bounds` are the button's; `allowed` are modifiers that may go with a key beside Shift.
    [[nodiscard]] PressAnswer take(const QEvent& event, const core::Rect& bounds,
                                   Qt::KeyboardModifiers allowed = {});

  private:
    [[nodiscard]] PressAnswer takeKey(const QKeyEvent& event, Qt::KeyboardModifiers allowed);

    PressTracker press_;
    HeldKey heldKey_;
};

/// What a press by a program is made with, as a key; and how long it is seen, in milliseconds.
inline constexpr int programKey = -1;
inline constexpr int momentOfPress = 100;

} // namespace platform
