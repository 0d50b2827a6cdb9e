#pragma once

#include <utility>

namespace platform {

/// What kind of input an event is.
enum class EventKind {
    leftMouseDown,
    leftMouseDragged, ///< a move with the left button held
    leftMouseUp,
    otherMouseDown,
    otherMouseUp,
    mouseMoved,
    scrollWheel,
    keyDown,
    keyUp,
    other
};

/// The modifier keys that were held.
struct EventModifiers {
    bool shift = false;
    bool control = false;
    bool option = false;  ///< Alt
    bool command = false; ///< the Command key of a Mac, elsewhere the one with the system's mark
    friend bool operator==(const EventModifiers&, const EventModifiers&) = default;
};

/// An event of the mouse or the keyboard, as far as actions ask for it.
struct InputEvent {
    EventKind kind = EventKind::other;
    EventModifiers modifiers;
    friend bool operator==(const InputEvent&, const InputEvent&) = default;
};

/// The event that a control is dealing with: what an action that it sends may ask. Absent (null)
/// outside of one. Main thread.
[[nodiscard]] const InputEvent* currentEvent();

/// Makes an event the current one for as long as it lives; then the one before it is that again.
/// The first thing in a control's event operation, and on the stack.
class [[nodiscard]] EventDispatch {
  public:
    explicit EventDispatch(InputEvent event);
    ~EventDispatch();
    EventDispatch(const EventDispatch&) = delete;
    EventDispatch& operator=(const EventDispatch&) = delete;

  private:
    InputEvent event_;
    const InputEvent* outer_;
};

} // namespace platform
