#pragma once

namespace fernhorn {

class KnobControl;

/// Makes knobs and dials known to screen readers: sliders with a name, the value in what the label
/// shows, the value with its unit as the description, and actions. Once is enough.
void installKnobAccessibility();

/// Tells screen readers where the knob's own edit has put the value.
void announceKnobValue(KnobControl& knob);

} // namespace fernhorn
