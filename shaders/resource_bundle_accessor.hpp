#pragma once

#include "platform/assets/bundle.hpp"

namespace kestrel {

/// The resource bundle of this library, "KestrelShaders_KestrelShaders"; found once. Stops the
/// program when it is missing. Main thread.
const platform::Bundle& resourceBundle();

} // namespace kestrel
