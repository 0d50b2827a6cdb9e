#pragma once

#include "platform/updates/session/update_identity.hpp"

namespace larkvox {

/// Whose updates the program takes, and from where. Compiled in.
[[nodiscard]] platform::UpdateIdentity updateIdentity();

} // namespace larkvox
