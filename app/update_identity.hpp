#pragma once

#include "platform/updates/session/update_identity.hpp"

namespace larkvox {

/// Whose updates the product takes, and from where: everything that is compiled in for that is in
/// this file's source.
[[nodiscard]] platform::UpdateIdentity updateIdentity();

} // namespace larkvox
