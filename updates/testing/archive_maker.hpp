#pragma once

#include "updates/archive/archive_manifest.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace updates::testing {

/// An entry of an archive that a test makes: exactly what it says, also what no archive should
/// hold.
struct MadeEntry {
    enum class Type { file, folder, symbolicLink, hardLink, device, fifo };
    std::string name;
    Type type = Type::file;
    std::string content = {}; ///< of a file, or the target of a link
    unsigned mode = 0644;
    std::uint64_t zeros = 0; ///< bytes of a file behind its content
};

/// Plain tar, or tar compressed; and formats that no update comes in.
enum class Packing { plain, xz, gzip, zip, sevenZip, cpio };

[[nodiscard]] std::vector<std::byte> makeArchive(const std::vector<MadeEntry>& entries,
                                                 Packing packing = Packing::plain);

[[nodiscard]] ArchiveManifest goodManifest(const std::string& version);

/// The entries of an update as it should be, with `program` as its program and some other files.
[[nodiscard]] std::vector<MadeEntry> goodUpdate(const std::string& version,
                                                const std::string& program);

/// `goodUpdate` with more entries behind it.
[[nodiscard]] std::vector<MadeEntry> updateWith(const std::string& version,
                                                std::vector<MadeEntry> more);

} // namespace updates::testing
