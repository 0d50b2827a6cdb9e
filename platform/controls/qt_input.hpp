#pragma once

#include "platform/controls/current_event.hpp"
#include "platform/controls/wheel_unit.hpp"

#include <Qt>

class QEvent;
class QWheelEvent;

namespace platform {

// The toolkit's events as the values that behaviour is made of. Main thread.

[[nodiscard]] EventModifiers toEventModifiers(Qt::KeyboardModifiers modifiers);

/// What is no input is `other`, without modifiers.
[[nodiscard]] InputEvent toInputEvent(const QEvent& event);

[[nodiscard]] WheelTurn toWheelTurn(const QWheelEvent& event);

} // namespace platform
