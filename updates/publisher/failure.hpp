#pragma once

#include <stdexcept>
#include <string>

// The publisher's program has one thread.
namespace updates {

/// What the program ends with.
enum class ExitCode {
    success = 0,
    refused = 1,     ///< the archive, the feed or the key is not right
    usage = 2,       ///< the command line is not understood
    inputOutput = 3, ///< a file could not be read or written
};

/// Ends a command with one message for the person who typed it.
class Failure final : public std::runtime_error {
  public:
    Failure(ExitCode exitCode, const std::string& message)
        : std::runtime_error(message), exitCode_(exitCode) {}

    [[nodiscard]] ExitCode exitCode() const { return exitCode_; }

  private:
    ExitCode exitCode_;
};

} // namespace updates
