#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

// What a program and its install helper say to each other: the helper's command line, the lines it
// writes to its standard output, and those it reads from its standard input.

namespace platform {

/// Why an update was not installed. The installed version is untouched, and nothing is kept.
enum class InstallFault {
    signatureMissing,
    signatureMalformed,
    signatureWrong,    ///< not by the maker's key, or of other bytes
    lengthDiffers,     ///< not as long as the feed says
    archiveUnreadable, ///< no archive, or a damaged one
    archiveUnsafe,     ///< it holds what an update never holds
    archiveTooLarge,   ///< it unpacks to more than an update ever does
    otherProduct,
    otherPlatform,
    otherVersion,     ///< not the version that the feed says
    notNewer,         ///< than the installed version, or than one that was installed once
    alreadyInstalled, ///< another copy has installed it meanwhile; a new start will use it
    busy,             ///< another copy is updating
    noSpace,
    noPermission,
    readOnly, ///< the file system
    inputOutput,
    cannotUpdate ///< this build has no key to verify with, or it is no installation that updates
                 ///< itself
};

[[nodiscard]] std::string_view wireName(InstallFault fault);
[[nodiscard]] std::optional<InstallFault> installFaultNamed(std::string_view wireName);

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

/// The arguments without the program's name.
[[nodiscard]] std::vector<std::string> installArguments(const InstallRequest& request);
/// Nothing unless every argument is there once and makes sense; an empty signature does.
[[nodiscard]] std::optional<InstallRequest>
readInstallArguments(std::span<const char* const> arguments);

struct InstallVerifying {
    bool operator==(const InstallVerifying&) const = default;
};
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
struct InstallRefused {
    InstallFault fault = InstallFault::inputOutput;
    std::string detail; ///< one line in English for a report, may be empty
    bool operator==(const InstallRefused&) const = default;
};

/// A line of the helper. `InstallDone` and `InstallRefused` are its last ones; one that was
/// cancelled ends without either, with exit code 0.
using InstallMessage =
    std::variant<InstallVerifying, InstallProgress, InstallReady, InstallDone, InstallRefused>;

/// Without the end of the line.
[[nodiscard]] std::string installLine(const InstallMessage& message);
[[nodiscard]] std::optional<InstallMessage> readInstallLine(std::string_view line);

/// A line to the helper. The end of its input means `cancel`, at any time.
enum class InstallCommand { install, cancel };

[[nodiscard]] std::string_view installLine(InstallCommand command);
[[nodiscard]] std::optional<InstallCommand> readInstallCommand(std::string_view line);

} // namespace platform
