#pragma once

#include <string>

namespace larkvox {

/// What hosts read before they load anything: `manifest.ttl` and `larkvox.ttl`, made from the
/// parameters' description. The libraries' names come without a folder. Any thread.
[[nodiscard]] std::string manifestTurtle();
[[nodiscard]] std::string pluginTurtle();

} // namespace larkvox
