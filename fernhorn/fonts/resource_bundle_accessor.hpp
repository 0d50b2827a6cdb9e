#pragma once

#include "platform/assets/bundle.hpp"

namespace fernhorn {

/// The resource bundle of this library, "Fernhorn_Fernhorn"; found once. Stops the
/// program when it is missing. Main thread.
const platform::Bundle& resourceBundle();

} // namespace fernhorn
