#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// What an update archive says of itself, in the file "manifest.json" of the version's folder. It
/// is inside the archive, so it is signed with it.
struct ArchiveManifest {
    std::string product;    ///< the name that people know
    std::string identifier; ///< of the program, the same in all its versions
    std::string version;
    std::string platform; ///< operating system and architecture, as `thisPlatform()`

    bool operator==(const ArchiveManifest&) const = default;
};

/// Nothing when the text is no JSON object, or when a field is missing, empty or no text. Fields
/// that are not known are ignored. Never throws.
[[nodiscard]] std::optional<ArchiveManifest> readArchiveManifest(std::string_view json) noexcept;

/// The text of a manifest file; `readArchiveManifest` gives the same manifest back.
[[nodiscard]] std::string archiveManifestText(const ArchiveManifest& manifest);

/// What this program was built for, such as "linux-x86_64".
[[nodiscard]] std::string_view thisPlatform();

} // namespace platform
