#include "updates/archive/archive_manifest.hpp"

#include <nlohmann/json.hpp>

#include <array>
#include <utility>

namespace updates {
namespace {

/// What it is called in the file, and where it is read to.
constexpr std::array<std::pair<const char*, std::string ArchiveManifest::*>, 6> fields{
    {{"product", &ArchiveManifest::product},
     {"name", &ArchiveManifest::name},
     {"identifier", &ArchiveManifest::identifier},
     {"version", &ArchiveManifest::version},
     {"platform", &ArchiveManifest::platform},
     {"publicKey", &ArchiveManifest::publicKey}}};

} // namespace

std::optional<ArchiveManifest> readArchiveManifest(std::string_view json) noexcept {
    try {
        const auto object = nlohmann::json::parse(json, nullptr, false);
        ArchiveManifest manifest;
        for (const auto& [key, field] : fields) {
            manifest.*field = object.at(key);
            if ((manifest.*field).empty()) {
                return std::nullopt;
            }
        }
        return manifest;
    } catch (...) { // not what it should hold, or no memory left
        return std::nullopt;
    }
}

std::string archiveManifestText(const ArchiveManifest& manifest) {
    nlohmann::ordered_json object;
    for (const auto& [key, field] : fields) {
        object[key] = manifest.*field;
    }
    using Handler = nlohmann::ordered_json::error_handler_t;
    return object.dump(2, ' ', false, Handler::replace) + "\n";
}

std::string programPath(const std::string& name) {
    return "bin/" + name;
}

std::string helperPath(const std::string& name) {
    return "libexec/" + name + "-install";
}

} // namespace updates
