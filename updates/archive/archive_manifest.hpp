#pragma once

#include <optional>
#include <string>
#include <string_view>

// Values and functions without a state, for any thread.
namespace updates {

/// What an update archive says of itself, in the file "manifest.json" of the version's folder. It
/// is inside the archive, so it is signed with it.
struct ArchiveManifest {
    std::string product;    ///< the name that people know
    std::string name;       ///< the same in the names of files; see `programPath`
    std::string identifier; ///< of the program, the same in all its versions
    std::string version;
    std::string platform;  ///< operating system and processor, as `platform::thisPlatform()`
    std::string publicKey; ///< that its program and helper trust: Ed25519, base64

    bool operator==(const ArchiveManifest&) const = default;
};

/// Nothing when the text is no JSON object, or when a field is missing, empty or no text. Fields
/// that are not known are ignored. Never throws.
[[nodiscard]] std::optional<ArchiveManifest> readArchiveManifest(std::string_view json) noexcept;

/// The text of a manifest file; `readArchiveManifest` gives the same manifest back.
[[nodiscard]] std::string archiveManifestText(const ArchiveManifest& manifest);

/// Where in a version's folder the program of a product is, and the helper that installs updates.
[[nodiscard]] std::string programPath(const std::string& name);
[[nodiscard]] std::string helperPath(const std::string& name);

} // namespace updates
