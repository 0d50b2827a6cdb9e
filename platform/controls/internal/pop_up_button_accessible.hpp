#pragma once

class QAccessibleInterface;

namespace platform {

class PopUpButton;

/// What screen readers are told of a button with a menu: the selected item also where the button
/// has a name of its own, whether it is open, the menu as its child, and that pressing opens it.
/// Owned by the caller. Main thread.
[[nodiscard]] QAccessibleInterface* makePopUpButtonAccessible(PopUpButton& button);

} // namespace platform
