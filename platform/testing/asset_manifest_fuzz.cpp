#include "platform/assets/asset_manifest.hpp"

#include <cstdlib>

namespace {

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void requireInside(const std::string& file) {
    require(!file.empty() && file.front() != '/' && file.find("..") == std::string::npos);
}

} // namespace

/// Whatever the text, what comes out can be used without another look.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto manifest =
        platform::AssetManifest::parse({reinterpret_cast<const char*>(data), size});
    for (const auto& [name, image] : manifest.images) {
        require(image.size.width > 0 && image.size.height > 0 && !image.variants.empty());
        require(image.capInsets.left + image.capInsets.right <= image.size.width);
        require(image.capInsets.top + image.capInsets.bottom <= image.size.height);
        for (const auto& [scale, file] : image.variants) {
            require(scale >= 1 && scale <= 8);
            requireInside(file);
        }
    }
    for (const auto& [name, color] : manifest.colors) {
        for (const double component : color.components) {
            require(component >= 0 && component <= 1);
        }
    }
    for (const auto& [name, face] : manifest.faces) {
        require(!face.family.empty() && face.weight >= 1 && face.weight <= 1000);
    }
    for (const std::string& file : manifest.fonts) {
        requireInside(file);
    }
    return 0;
}
