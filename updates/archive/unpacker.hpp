#pragma once

#include "updates/archive/archive_manifest.hpp"
#include "updates/feed/update_problem.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <variant>

namespace updates {

/// What was in an archive that kept all rules.
struct UnpackedArchive {
    ArchiveManifest manifest; ///< its version is the one of the folder that it lies in
    std::uint64_t bytes = 0;  ///< of all files together
    std::size_t files = 0;
};

/// Told the bytes of the archive that are done; false stops the work.
using ArchiveProgress = std::function<bool(std::uint64_t done)>;

/// What was unpacked, or why nothing may be.
using UnpackResult = std::variant<UnpackedArchive, Refusal>;

/// Unpacks the version that an update archive holds (its folder "Larkvox/versions/VERSION") into an
/// empty folder, given by its descriptor. Only files and folders are made, none outside of it, no
/// link is followed, and everybody may read them whatever the umask. What was made before a refusal
/// stays for the caller to remove. The archive's bytes must not change meanwhile. Any thread.
[[nodiscard]] UnpackResult unpackArchive(std::span<const std::byte> archive, int folder,
                                         const ArchiveProgress& progress = {});

/// The same rules, and nothing is written.
[[nodiscard]] UnpackResult examineArchive(std::span<const std::byte> archive);

} // namespace updates
