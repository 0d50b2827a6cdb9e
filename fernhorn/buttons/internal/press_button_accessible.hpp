#pragma once

class QAccessibleInterface;

namespace fernhorn {

class PressButton;

/// What screen readers are told of the kit's buttons: role, name, states and actions. Owned by the
/// caller. Main thread, as all of this.
[[nodiscard]] QAccessibleInterface* makePressButtonAccessible(PressButton& button);

/// Tells screen readers that the button is pressed or released by now.
void announcePressed(PressButton& button);
/// Tells them that it is on or off by now, or chosen among others.
void announceOn(PressButton& button);

} // namespace fernhorn
