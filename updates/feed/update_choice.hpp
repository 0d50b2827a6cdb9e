#pragma once

#include "platform/system/process.hpp"
#include "updates/feed/appcast_reader.hpp"

#include <string_view>

namespace updates {

/// The installation that an update is looked for, and the machine it is on.
struct UpdateHost {
    std::string installedVersion;
    std::string highestInstalledVersion; ///< ever installed here; empty: none but the present one
    std::string skippedVersion;          ///< of the item the user does not want; empty: none
    std::string skippedSignature;        ///< of its archive: no other item is skipped
    std::string systemVersion;           ///< numbers with points; what follows them does not count
    std::string platform{platform::thisPlatform()};
    std::vector<std::string> channels; ///< beside the one for everybody
    unsigned phaseGroup = 0;           ///< 0 to 6, drawn once for an installation
    std::uint64_t feedSerial = 0;      ///< the highest of a feed that was seen; 0: none
    std::chrono::system_clock::time_point now;
};

/// Who wants to know. A schedule respects a skipped version and the phases of a rollout.
enum class Asking { user, schedule };

inline constexpr unsigned phaseGroups = 7;
/// No archive may be longer, in bytes: it is held in memory until it is verified.
inline constexpr std::uint64_t largestArchive = std::uint64_t{256} << 20;

/// Nothing in the feed is newer than what is installed.
struct UpToDate {};

/// There is something newer, but not for this installation; or the feed has nothing for it at all.
struct NothingSuitable {
    enum class Why {
        nothingForThisSystem,  ///< the feed has no version for this system; there is no item
        notSigned,             ///< no signature, or a text that is none
        insecureAddress,       ///< the archive is not on an https address
        unknownLength,         ///< the feed does not say how long the archive is
        tooLarge,              ///< longer than `largestArchive`
        needsNewerSystem,      ///< see the item's minimumSystemVersion
        belowHighestInstalled, ///< a newer version was installed here before
        skipped,               ///< the user does not want it (schedule only)
        notYetForThisGroup,    ///< the rollout has not come to this installation (schedule only)
    };
    Why why = Why::nothingForThisSystem;
    AppcastItem item; ///< the newest that was passed over
};

/// The newest version that the feed offers to this installation; of items with the same version the
/// one that names the system most exactly, then the earliest. Items for other systems and channels
/// do not count. The chosen item's `isCritical` is meant for this very installation. Any thread.
[[nodiscard]] std::variant<AppcastItem, UpToDate, NothingSuitable>
chooseUpdate(const Appcast& appcast, const UpdateHost& host, Asking asking);

} // namespace updates
