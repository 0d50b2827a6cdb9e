#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace updates {

/// What the updater remembers from one run to the next. A value.
struct UpdateMemory {
    using Time = std::chrono::system_clock::time_point;

    std::optional<bool> checksByItself; ///< nothing: the user has not been asked
    int starts = 0;                     ///< this one included
    std::optional<Time> lastCheck;      ///< that brought an answer
    std::optional<Time> lastTry;        ///< on schedule, without an answer
    int failures = 0;                   ///< such tries in a row
    std::string skippedVersion;         ///< exactly the item with this version
    std::string skippedSignature;       ///< and this signature of its archive
    std::optional<unsigned> phaseGroup; ///< 0…6, thrown once
    std::uint64_t feedSerial = 0;       ///< the highest of a feed that was seen; never goes down

    bool operator==(const UpdateMemory&) const = default;
};

/// The file that an `UpdateMemory` lives in, shared by all copies of the program that run: what one
/// of them changes never undoes another's change. What cannot be read is forgotten; what cannot be
/// written is tried again with the next change and at the end. One thread.
class UpdateStore {
  public:
    /// An empty path: nothing is kept.
    explicit UpdateStore(QString path);
    ~UpdateStore();
    UpdateStore(const UpdateStore&) = delete;
    UpdateStore& operator=(const UpdateStore&) = delete;

    /// As it was last read or changed.
    [[nodiscard]] const UpdateMemory& memory() const { return memory_; }
    /// Reads what other copies have changed meanwhile.
    const UpdateMemory& refresh();

    using Change = std::function<void(UpdateMemory&)>;
    /// Changes what is remembered by now. The file is written at once, as a whole or not at all.
    void change(const Change& change);

  private:
    void write(int patience);

    const QString path_;
    UpdateMemory memory_;
    std::vector<Change> unwritten_;
};

/// When the next check on schedule is due; nothing: never. A time that lies in the future counts as
/// none, so that a clock that was wrong once does not stop the checks. Any thread.
[[nodiscard]] std::optional<UpdateMemory::Time> nextCheck(const UpdateMemory& memory,
                                                          UpdateMemory::Time now);

} // namespace updates
