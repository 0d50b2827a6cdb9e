#pragma once

#include "updates/archive/archive_reader.hpp"
#include "updates/archive/unpacker.hpp"

#include <algorithm>
#include <set>
#include <string>
#include <variant>

namespace updates {

/// More entries no update has.
inline constexpr std::size_t mostArchiveEntries = 20000;

/// Into how many bytes an archive may unpack: twenty times its own, and a little for small ones.
[[nodiscard]] constexpr std::uint64_t largestUnpackedSize(std::uint64_t archiveBytes) {
    return std::min<std::uint64_t>(archiveBytes * 20 + (std::uint64_t{1} << 20),
                                   std::uint64_t{4} << 30);
}

/// What an update archive may hold, entry by entry. It touches no file. One thread at a time.
///
/// First comes the one top folder. In it may be files (the launcher and what goes with it; an
/// update leaves them alone), the link "current" to the version, and the folder "versions" with the
/// one folder of the version; in that are folders and files and nothing else. Every folder comes
/// before what is in it, nothing comes twice.
class ArchiveRules {
  public:
    explicit ArchiveRules(std::uint64_t archiveBytes)
        : bytesLeft_(largestUnpackedSize(archiveBytes)) {}

    /// Where an entry goes, relative to the version's folder. Empty: it is not unpacked.
    struct Place {
        std::string path;
    };
    [[nodiscard]] std::variant<Place, Refusal> admit(const ArchiveEntry& entry);

    /// Bytes of a file's content are about to be written. False where they are too many.
    [[nodiscard]] bool admitBytes(std::uint64_t count);

    /// Of the version's folder; empty as long as it has not come.
    [[nodiscard]] const std::string& version() const { return version_; }
    /// Where the link "current" leads, "versions/VERSION"; empty when there is none.
    [[nodiscard]] const std::string& currentTarget() const { return currentTarget_; }

  private:
    std::variant<Place, Refusal> admitInTopFolder(const ArchiveEntry& entry,
                                                  const std::string& path);

    std::uint64_t bytesLeft_;
    std::size_t entries_ = 0;
    std::set<std::string> names_;
    std::set<std::string> folders_;
    std::string top_;
    std::string version_;
    std::string currentTarget_;
};

} // namespace updates
