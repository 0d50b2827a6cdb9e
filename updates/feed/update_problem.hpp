#pragma once

#include <string>

namespace updates {

/// Everything that can come between a person and an update. Each has a message of its own.
enum class UpdateProblem {
    // On the way to the server.
    offline,              ///< the server's name is not found
    noAnswer,             ///< refused, timed out, or closed before it answered
    proxyRefused,         ///< the network's proxy does not let us through
    certificateUntrusted, ///< detail: the host
    certificateExpired,   ///< detail: the host
    clockLooksWrong,      ///< detail: the date by this computer's clock
    insecureAddress,      ///< an address without https, the first or one redirected to
    tooManyRedirects,
    serverError, ///< detail: the status
    notOnServer, ///< the feed or the archive is not where it should be
    signInFirst, ///< a page of the network in place of what was asked for
    tooSlow,     ///< less than the least speed, or nothing at all for a while
    connectionLost,

    // In the feed.
    noKey,          ///< this build cannot tell the maker's feed from another one
    feedNotSigned,  ///< nobody vouches for it, or somebody else than the maker
    feedSuperseded, ///< a newer one was seen before
    feedExpired,    ///< the maker has not renewed it, or a newer one is held back
    feedTooLarge,
    feedUnreadable,
    feedForbidden, ///< well-formed, but with something in it that no feed needs

    // In the archive.
    wrongLength,
    archiveTooLarge,
    signatureMissing,
    signatureWrong,
    archiveDamaged,
    archiveUnsafe,
    otherProduct,
    otherPlatform,
    otherVersion,
    notNewer,

    // On this computer.
    noMemory,
    noSpace,
    noPermission,
    readOnly,
    inputOutput,
    busy,             ///< another copy is updating
    alreadyInstalled, ///< another copy has done it
    installerMissing,
    installerStopped,
    relaunchFailed, ///< the update is installed, but did not start
};

/// For reading one from a number.
inline constexpr UpdateProblem lastUpdateProblem = UpdateProblem::relaunchFailed;

/// Why something was refused: the problem, and one line in English for a report, which may be
/// empty.
struct Refusal {
    UpdateProblem problem = UpdateProblem::inputOutput;
    std::string detail;

    bool operator==(const Refusal&) const = default;
};

/// A refusal for an error of the system, an errno. Any thread.
[[nodiscard]] Refusal systemRefusal(int error, const std::string& doing);

} // namespace updates
