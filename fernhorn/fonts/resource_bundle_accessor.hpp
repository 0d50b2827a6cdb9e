#pragma once

#include "platform/assets/bundle.hpp"

namespace fernhorn {

/// The resource bundle of this library, "Fernhorn_Fernhorn"; found once. Stops the
/// program when it is missing. Main thread.
const platform::Bundle& resourceBundle();

/// Whether `resourceBundle` would find it: what a plug-in asks first, whose host must not be
/// stopped. Needs the application object. Main thread.
bool hasResourceBundle();

} // namespace fernhorn
