#pragma once

namespace fernhorn {

class PressButton;

/// Makes the kit's buttons known to screen readers: role, name, states and actions. Once is enough.
void installPressButtonAccessibility();

/// Tells screen readers that the button is pressed or released by now.
void announcePressed(PressButton& button);
/// Tells them that it is on or off by now, or chosen among others.
void announceOn(PressButton& button);

} // namespace fernhorn
