#pragma once

#include "updates/feed/update_problem.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

// What a program and its install helper say to each other: the helper's command line, the lines of
// JSON that it writes to its standard output, and the words that it reads from its standard input.
// Both are of the same build. Any thread.

namespace updates {

/// What the helper is started with.
struct InstallRequest {
    std::filesystem::path root; ///< of the installation
    int archive = -1;           ///< descriptor of a sealed memory file, inherited by the helper
    std::uint64_t length = 0;   ///< of the archive, as the feed says; bytes
    std::string signature;      ///< Ed25519 over the archive's bytes, base64, as the feed says
    std::string version;        ///< the feed says that this is in it
    std::string installed;      ///< the version that asks

    bool operator==(const InstallRequest&) const = default;
};

/// The arguments in this order, without the program's name.
[[nodiscard]] std::vector<std::string> installArguments(const InstallRequest& request);
/// Nothing unless every argument is there and makes sense; an empty signature does.
[[nodiscard]] std::optional<InstallRequest>
readInstallArguments(std::span<const char* const> arguments);

/// It has begun with the signature.
struct InstallVerifying {
    bool operator==(const InstallVerifying&) const = default;
};
/// It is unpacking.
struct InstallProgress {
    std::uint64_t done = 0; ///< bytes of the archive that are unpacked
    std::uint64_t total = 0;
    bool operator==(const InstallProgress&) const = default;
};
/// All is unpacked and safe on the disk; the helper waits for a command.
struct InstallReady {
    bool operator==(const InstallReady&) const = default;
};
/// The next start is the new version.
struct InstallDone {
    std::string version;
    bool operator==(const InstallDone&) const = default;
};

/// A line of the helper. `InstallDone` and `Refusal` are its last ones; after a refusal the
/// installed version is untouched, and nothing is kept. One that was cancelled ends without either,
/// with exit code 0.
using InstallMessage =
    std::variant<InstallVerifying, InstallProgress, InstallReady, InstallDone, Refusal>;

/// Without the end of the line.
[[nodiscard]] std::string installLine(const InstallMessage& message);
/// Nothing for what is no message. Never throws.
[[nodiscard]] std::optional<InstallMessage> readInstallLine(std::string_view line) noexcept;

/// The line to the helper that lets it install. Every other one means that it is to give up, and so
/// does the end of its input, at any time.
inline constexpr std::string_view installCommand = "install";

} // namespace updates
