#pragma once

#include "driftwood/style/asset_source.hpp"

#include <map>
#include <set>
#include <string>

namespace driftwood {

/// Assets for tests that are nothing but their names. Every request makes a new object.
class NamedColor final : public StyleColor {
  public:
    explicit NamedColor(std::string_view colorName) : name(colorName) {}
    [[nodiscard]] bool isEqual(const Asset& other) const override {
        const auto* const color = dynamic_cast<const NamedColor*>(&other);
        return color != nullptr && color->name == name;
    }
    const std::string name;
};

class NamedImage final : public StyleImage {
  public:
    explicit NamedImage(std::string_view imageName) : name(imageName) {}
    [[nodiscard]] core::Size size() const override { return {20, 10}; }
    [[nodiscard]] bool isTemplate() const override { return false; }
    const std::string name;
};

class SizedFont final : public StyleFont {
  public:
    SizedFont(double fontSize, FontWeight fontWeight, FontDigits fontDigits)
        : size(fontSize), weight(fontWeight), digits(fontDigits) {}
    const double size;
    const FontWeight weight;
    const FontDigits digits;
};

class FakeAssetSource final : public AssetSource {
  public:
    [[nodiscard]] Color color(std::string_view name) const override {
        ++colorRequests[std::string(name)];
        return Color(std::make_shared<NamedColor>(name));
    }
    [[nodiscard]] Color clearColor() const override { return color("clear"); }
    [[nodiscard]] Image image(std::string_view name) const override {
        return missingImages.contains(name) ? Image() : Image(std::make_shared<NamedImage>(name));
    }
    [[nodiscard]] Font systemFont(double size, FontWeight weight,
                                  FontDigits digits) const override {
        return Font(std::make_shared<SizedFont>(size, weight, digits));
    }

    std::set<std::string, std::less<>> missingImages;
    mutable std::map<std::string, int> colorRequests;
};

/// Installed at the first call.
inline FakeAssetSource& fakeAssets() {
    static const auto source = [] {
        auto made = std::make_shared<FakeAssetSource>();
        setAssetSource(made);
        return made;
    }();
    return *source;
}

inline std::string nameOf(const Color& color) {
    return color ? dynamic_cast<const NamedColor&>(*color.get()).name : "";
}

inline std::string nameOf(const Image& image) {
    return image ? dynamic_cast<const NamedImage&>(*image.get()).name : "";
}

} // namespace driftwood
