#pragma once

#include <QString>

#include <chrono>
#include <optional>
#include <string>

namespace platform {

/// What the updater remembers from one run to the next.
struct UpdateMemory {
    using Time = std::chrono::system_clock::time_point;

    std::optional<bool> checksByItself; ///< nothing: the user has not been asked
    int starts = 0;                     ///< this one included
    std::optional<Time> lastCheck;      ///< that brought an answer
    std::optional<Time> lastTry;        ///< on schedule, without an answer
    int failures = 0;                   ///< such tries in a row
    std::string skippedVersion;
    std::optional<unsigned> phaseGroup; ///< 0…6, thrown once

    bool operator==(const UpdateMemory&) const = default;
};

/// The file that an `UpdateMemory` lives in. What cannot be read is forgotten, what cannot be
/// written lasts until the program ends.
class UpdateStore {
  public:
    /// An empty path: nothing is kept.
    explicit UpdateStore(QString path);

    [[nodiscard]] const UpdateMemory& memory() const { return memory_; }
    /// Writes the file at once, as a whole or not at all.
    void set(const UpdateMemory& memory);

  private:
    QString path_;
    UpdateMemory memory_;
};

/// When the next check on schedule is due; nothing: never. A time that lies in the future counts as
/// none, so that a clock that was wrong once does not stop the checks.
[[nodiscard]] std::optional<UpdateMemory::Time> nextCheck(const UpdateMemory& memory,
                                                          UpdateMemory::Time now);

} // namespace platform
