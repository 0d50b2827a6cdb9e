#pragma once

#include "updates/session/update_identity.hpp"

namespace larkvox {

/// Whose updates the program takes, and from where. Compiled in. Any thread.
[[nodiscard]] updates::UpdateIdentity updateIdentity();

} // namespace larkvox
