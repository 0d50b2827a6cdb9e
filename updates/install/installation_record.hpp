#pragma once

#include "platform/system/files.hpp"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// What an installation that updates itself remembers, and its one pointer to the current version.
// All in the folder ROOT, given by its descriptor:
//   NAME                the launcher
//   current             a link to "versions/VERSION"
//   versions/VERSION    a whole version; locked by those who run it
//   state/record        what is remembered
//   state/record.lock   held, briefly, by who changes record or pointer
//   state/update.lock   held by who updates
//   state/reserve       room on the disk for the record to change when there is no other
//   staging             only during an update
// Every change is made beside, flushed to the disk and put in place by one rename. The locks can
// only be opened by the installation's owner, so nobody else can keep it from being updated. Any
// thread.

namespace updates {

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

inline constexpr const char* currentName = "current";
inline constexpr const char* versionsName = "versions";
inline constexpr const char* stateName = "state";
inline constexpr const char* updateLockName = "update.lock";
inline constexpr const char* stagingName = "staging";
/// A new version that was started so often without coming up is given up.
inline constexpr int mostTrialStarts = 2;
/// The environment variable in which the launcher hands its lock on the version to the program.
inline constexpr const char* lockVariable = "UPDATES_VERSION_LOCK";

/// The version that "current" points to; empty when it makes no sense.
[[nodiscard]] std::string currentVersion(int root);

/// The text of a record, and what is remembered by one: empty fields for nonsense.
[[nodiscard]] std::string recordText(const InstallationRecord& record);
[[nodiscard]] InstallationRecord parseRecord(std::string_view text);

/// What is remembered as it stands while `current` is the current version: a trial of any other
/// version is over or has never begun.
[[nodiscard]] InstallationRecord readRecord(int root, std::string_view current);

/// Makes the folder for what is remembered, where there is none. 0 or an errno.
[[nodiscard]] int makeState(int root);

// These change something: the caller holds a `RecordLock`. They return 0 or an errno. Where the
// disk is full they take the reserve.
[[nodiscard]] int writeRecord(int root, const InstallationRecord& record);
[[nodiscard]] int pointCurrentTo(int root, const std::string& version);
/// Makes sure that both can be done later, whatever the disk is like then.
[[nodiscard]] int reserveRoom(int root);

/// The right to change record and pointer. Held briefly.
class RecordLock {
  public:
    /// Waits for others, but not for ever.
    explicit RecordLock(int root);
    [[nodiscard]] bool holds() const { return error_ == 0; }
    [[nodiscard]] int error() const { return error_; } ///< why not, an errno

  private:
    platform::Descriptor lock_;
    int error_ = 0;
};

/// Removes what an update or a change that was cut off left behind. The caller holds both locks.
void removeUnfinished(int root);

} // namespace updates
