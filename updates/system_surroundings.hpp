#pragma once

#include "updates/session/update_session.hpp"

namespace updates {

/// The configuration of an updater on the user's real system: which installation this program lies
/// in, the folder for settings, chance, other programs. What is the product's own (`identity`,
/// `version`) is left to the caller. `name` is the product's in file names. Needs the application
/// object. Main thread.
[[nodiscard]] UpdaterConfiguration systemSurroundings(const QString& name);

} // namespace updates
