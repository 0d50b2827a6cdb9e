#pragma once

namespace fernhorn {

/// Makes labels on their own known to screen readers: a button with the parameter's name, the value
/// with its unit as the description, that opens the field. Once is enough.
void installDialLabelAccessibility();

} // namespace fernhorn
