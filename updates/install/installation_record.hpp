#pragma once

#include "platform/system/descriptor.hpp"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// What an installation that updates itself remembers, and its one pointer to the current version.
// All in the folder ROOT, given by its descriptor:
//   larkvox            the launcher
//   current            a link to "versions/VERSION"
//   versions/VERSION   a whole version; locked by those who run it
//   state/record       what is remembered; "state" is locked by who changes record or pointer
//   staging            only during an update; ROOT itself is locked by who updates
// Every change is made beside, flushed to the disk and put in place by one rename.

namespace platform {

struct InstallationRecord {
    /// A new version that has not come up yet.
    struct Trial {
        std::string version;
        std::string previous; ///< the version to go back to
        int starts = 0;       ///< how often it was started without coming up
    };

    std::string highest;  ///< the highest version ever installed; empty: not known
    std::string previous; ///< the version before the current one, which is kept; empty: none
    std::string failed;   ///< the last one that did not come up; empty: none
    std::optional<Trial> trial;

    /// The version to keep beside the current one; empty: none.
    [[nodiscard]] const std::string& kept() const { return trial ? trial->previous : previous; }
};

inline constexpr const char* launcherName = "larkvox";
inline constexpr const char* currentName = "current";
inline constexpr const char* versionsName = "versions";
inline constexpr const char* stateName = "state";
inline constexpr const char* stagingName = "staging";
/// Within a version's folder.
inline constexpr const char* programPath = "bin/larkvox";
inline constexpr const char* helperPath = "libexec/larkvox-install";
/// A new version that was started so often without coming up is given up.
inline constexpr int mostTrialStarts = 2;
/// The environment variable in which the launcher hands its lock on the version to the program.
inline constexpr const char* lockVariable = "LARKVOX_VERSION_LOCK";

/// A folder, not followed when it is a link; none where it cannot be opened.
[[nodiscard]] Descriptor openFolder(int parent, const std::string& name);
[[nodiscard]] Descriptor openFolder(const std::filesystem::path& path);

/// The version that "current" points to; empty when it makes no sense.
[[nodiscard]] std::string currentVersion(int root);

/// What is remembered as it stands while `current` is the current version: a trial of any other
/// version is over or has never begun. Empty fields where nothing, or nonsense, is written.
[[nodiscard]] InstallationRecord readRecord(int root, std::string_view current);

// These change something: the caller holds a `RecordLock`. They return 0 or an errno.
[[nodiscard]] int writeRecord(int root, const InstallationRecord& record);
[[nodiscard]] int pointCurrentTo(int root, const std::string& version);

/// The right to change record and pointer. Held briefly.
class RecordLock {
  public:
    enum class Folder { make, mustExist };
    /// Waits for others, but not for ever.
    RecordLock(int root, Folder folder);
    [[nodiscard]] bool holds() const { return bool(state_); }
    [[nodiscard]] int error() const { return error_; } ///< why not, an errno

  private:
    Descriptor state_;
    int error_ = 0;
};

enum class Sharing { shared, exclusive };

/// Locks an open folder, trying again for some tenths of a second. 0, or an errno: EWOULDBLOCK
/// where somebody else holds it.
[[nodiscard]] int lockFolder(int folder, Sharing sharing, int tenths = 0);

} // namespace platform
