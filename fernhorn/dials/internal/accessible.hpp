#pragma once

namespace fernhorn {

class KnobControl;

/// Makes knobs and dials known to screen readers: sliders with a name, the value in what the label
/// shows, the value with its unit as the description, and actions. Once is enough. Main thread.
void installKnobAccessibility();

/// Tells screen readers where the knob's own edit has put the value. Main thread.
void announceKnobValue(KnobControl& knob);

/// Makes labels on their own known to screen readers: a button with the parameter's name, the value
/// with its unit as the description, that opens the field. Once is enough. Main
/// thread.
void installDialLabelAccessibility();

} // namespace fernhorn
