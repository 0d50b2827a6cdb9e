#pragma once

#include "platform/assets/bundle.hpp"

namespace driftwood {

/// The resource bundle of this library, "Driftwood_Driftwood"; found once. Stops the
/// program when it is missing. Main thread.
const platform::Bundle& resourceBundle();

} // namespace driftwood
