#include "platform/assets/asset_manifest.hpp"

#include <nlohmann/json.hpp>

#include <charconv>
#include <cmath>
#include <optional>

namespace platform {
namespace {

using Json = nlohmann::json;

constexpr double largestSide = 4096; // points

template<std::size_t Count>
std::optional<std::array<double, Count>> numbers(const Json& owner, const char* key, double lowest,
                                                 double highest) {
    const auto found = owner.find(key);
    if (found == owner.end() || !found->is_array() || found->size() != Count) {
        return {};
    }
    std::array<double, Count> result{};
    for (std::size_t i = 0; i < Count; ++i) {
        const Json& number = (*found)[i];
        if (!number.is_number()) {
            return {};
        }
        result[i] = number.get<double>();
        if (!(result[i] >= lowest && result[i] <= highest)) {
            return {};
        }
    }
    return result;
}

bool staysInside(const std::string& file) {
    // A colon would lead to a drive, or to the resources inside of the program.
    constexpr std::string_view forbidden("\\:\0", 3);
    return !file.empty() && file.front() != '/' && file.find("..") == std::string::npos &&
           file.find_first_of(forbidden) == std::string::npos;
}

std::optional<ImageEntry> parseImage(const Json& json) {
    const auto size = numbers<2>(json, "size", 0, largestSide);
    if (!size || !((*size)[0] > 0) || !((*size)[1] > 0)) {
        return {};
    }
    ImageEntry image;
    image.size = {(*size)[0], (*size)[1]};
    if (json.contains("capInsets")) {
        const auto insets = numbers<4>(json, "capInsets", 0, largestSide);
        if (!insets || (*insets)[0] + (*insets)[2] > image.size.height ||
            (*insets)[1] + (*insets)[3] > image.size.width) {
            return {};
        }
        image.capInsets = {(*insets)[0], (*insets)[1], (*insets)[2], (*insets)[3]};
    }
    const Json resizing = json.value("resizing", Json("none"));
    if (resizing == "stretch") {
        image.resizing = ImageResizing::stretch;
    } else if (resizing == "tile") {
        image.resizing = ImageResizing::tile;
    } else if (resizing != "none") {
        return {};
    }
    const Json isTemplate = json.value("template", Json(false));
    image.isTemplate = isTemplate == true;
    const auto variants = json.find("variants");
    if (variants == json.end() || !variants->is_object()) {
        return {};
    }
    for (const auto& [key, file] : variants->items()) {
        int scale = 0;
        const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), scale);
        if (error == std::errc() && end == key.data() + key.size() && scale >= 1 && scale <= 8 &&
            file.is_string() && staysInside(file.get_ref<const std::string&>())) {
            image.variants.emplace(scale, file.get<std::string>());
        }
    }
    return image.variants.empty() ? std::nullopt : std::optional(image);
}

std::optional<ColorEntry> parseColor(const Json& json) {
    const auto components = numbers<4>(json, "components", 0, 1);
    const Json space = json.value("space", Json("srgb"));
    if (!components || (space != "srgb" && space != "display-p3")) {
        return {};
    }
    return ColorEntry{space == "srgb" ? ColorEncoding::sRGB : ColorEncoding::displayP3,
                      *components};
}

std::optional<FaceEntry> parseFace(const Json& json) {
    const Json family = json.value("family", Json());
    const Json style = json.value("style", Json(""));
    const Json weight = json.value("weight", Json(400));
    if (!family.is_string() || family.get_ref<const std::string&>().empty() || !style.is_string() ||
        !weight.is_number_integer() || weight < 1 || weight > 1000) {
        return {};
    }
    return FaceEntry{family.get<std::string>(), style.get<std::string>(), weight.get<int>()};
}

template<class Entry, class Parse>
void collect(const Json& root, const char* key, std::map<std::string, Entry, std::less<>>& into,
             Parse parse) {
    const auto section = root.find(key);
    if (section == root.end() || !section->is_object()) {
        return;
    }
    for (const auto& [name, json] : section->items()) {
        if (json.is_object()) {
            if (auto entry = parse(json)) {
                into.emplace(name, std::move(*entry));
            }
        }
    }
}

} // namespace

AssetManifest AssetManifest::parse(std::string_view text) noexcept {
    AssetManifest manifest;
    const Json root = Json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (!root.is_object()) {
        return manifest;
    }
    collect(root, "images", manifest.images, parseImage);
    collect(root, "colors", manifest.colors, parseColor);
    collect(root, "faces", manifest.faces, parseFace);
    if (const auto fonts = root.find("fonts"); fonts != root.end() && fonts->is_array()) {
        for (const Json& file : *fonts) {
            if (file.is_string() && staysInside(file.get_ref<const std::string&>())) {
                manifest.fonts.push_back(file.get<std::string>());
            }
        }
    }
    return manifest;
}

} // namespace platform
