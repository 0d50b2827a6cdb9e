#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

struct archive;

namespace updates {

/// One entry of an archive, as it is written there: nothing of it has been checked. A value.
struct ArchiveEntry {
    enum class Kind { file, folder, link, other };
    Kind kind = Kind::other; ///< hard links, devices and the like are `other`
    std::string name;        ///< empty where the archive's text cannot be understood
    std::string linkTarget;  ///< of `Kind::link`
    std::uint64_t size = 0;  ///< of `Kind::file`, in bytes, as claimed
    unsigned mode = 0;       ///< the permission bits with set-id and sticky bits
};

/// Reads a tar archive in memory, plain or compressed with xz, entry by entry. The memory must
/// outlive it. One thread at a time.
class ArchiveReader {
  public:
    explicit ArchiveReader(std::span<const std::byte> bytes);
    ~ArchiveReader();
    ArchiveReader(const ArchiveReader&) = delete;
    ArchiveReader& operator=(const ArchiveReader&) = delete;

    /// The next entry; nothing at the end, or where the archive is damaged.
    [[nodiscard]] std::optional<ArchiveEntry> next();
    /// The next bytes of the entry's content: how many, 0 at its end; nothing when damaged.
    [[nodiscard]] std::optional<std::size_t> read(std::span<std::byte> buffer);

    /// What is wrong with the archive, one line; empty as long as nothing is.
    [[nodiscard]] const std::string& damage() const { return damage_; }
    /// The bytes of the archive that were consumed.
    [[nodiscard]] std::uint64_t consumed() const;

  private:
    struct Close {
        void operator()(archive* reader) const;
    };
    void noteDamage();

    std::unique_ptr<archive, Close> reader_;
    std::string damage_;
};

} // namespace updates
