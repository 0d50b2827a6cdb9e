#include "platform/updates/archive/archive_manifest.hpp"

#include <nlohmann/json.hpp>

namespace platform {
namespace {

// The system's name beside the processor's.
#if defined(__linux__)
#define LARKVOX_SYSTEM "linux"
#elif defined(__APPLE__)
#define LARKVOX_SYSTEM "macos"
#else
#error "an unknown system"
#endif
#if defined(__x86_64__)
#define LARKVOX_PROCESSOR "x86_64"
#elif defined(__aarch64__)
#define LARKVOX_PROCESSOR "aarch64"
#elif defined(__riscv) && __riscv_xlen == 64
#define LARKVOX_PROCESSOR "riscv64"
#else
#error "an unknown processor"
#endif

} // namespace

std::optional<ArchiveManifest> readArchiveManifest(std::string_view json) noexcept {
    try {
        const auto object = nlohmann::json::parse(json, nullptr, false);
        if (!object.is_object()) {
            return std::nullopt;
        }
        const auto text = [&object](const char* key) {
            const auto found = object.find(key);
            return found != object.end() && found->is_string() ? found->get<std::string>()
                                                               : std::string();
        };
        ArchiveManifest manifest{text("product"), text("identifier"), text("version"),
                                 text("platform")};
        if (manifest.product.empty() || manifest.identifier.empty() || manifest.version.empty() ||
            manifest.platform.empty()) {
            return std::nullopt;
        }
        return manifest;
    } catch (...) { // no memory left
        return std::nullopt;
    }
}

std::string archiveManifestText(const ArchiveManifest& manifest) {
    const nlohmann::ordered_json object{{"product", manifest.product},
                                        {"identifier", manifest.identifier},
                                        {"version", manifest.version},
                                        {"platform", manifest.platform}};
    using Handler = nlohmann::ordered_json::error_handler_t;
    return object.dump(2, ' ', false, Handler::replace) + "\n";
}

std::string_view thisPlatform() {
    return LARKVOX_SYSTEM "-" LARKVOX_PROCESSOR;
}

} // namespace platform
