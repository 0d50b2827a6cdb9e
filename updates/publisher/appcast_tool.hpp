#pragma once

#include "updates/publisher/failure.hpp"

#include <chrono>
#include <iosfwd>
#include <span>

// The publisher's program has one thread.
namespace updates {

/// Runs one command of the program. Results go to `out`, what went wrong to `errors`; neither ever
/// holds anything of a private key.
[[nodiscard]] ExitCode runTool(std::span<const char* const> arguments, std::ostream& out,
                               std::ostream& errors, std::chrono::sys_seconds now);

} // namespace updates
