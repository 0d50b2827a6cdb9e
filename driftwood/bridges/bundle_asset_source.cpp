#include "driftwood/bridges/bundle_asset_source.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "platform/assets/asset_catalog.hpp"
#include "platform/assets/system_font.hpp"

namespace driftwood {
namespace {

QString text(std::string_view name) {
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

class QtColor final : public StyleColor {
  public:
    explicit QtColor(const QColor& color) : value(color) {}
    [[nodiscard]] bool isEqual(const Asset& other) const override {
        const auto* const color = dynamic_cast<const QtColor*>(&other);
        return color != nullptr && color->value == value;
    }
    const QColor value;
};

class QtFont final : public StyleFont {
  public:
    explicit QtFont(const QFont& font) : value(font) {}
    [[nodiscard]] bool isEqual(const Asset& other) const override {
        const auto* const font = dynamic_cast<const QtFont*>(&other);
        return font != nullptr && font->value == value;
    }
    const QFont value;
};

class BundleImage final : public StyleImage {
  public:
    explicit BundleImage(const platform::ImageAsset& image) : value(image) {}
    [[nodiscard]] bool isEqual(const Asset& other) const override {
        const auto* const image = dynamic_cast<const BundleImage*>(&other);
        return image != nullptr && &image->value == &value;
    }
    [[nodiscard]] core::Size size() const override {
        return {value.size().width(), value.size().height()};
    }
    [[nodiscard]] bool isTemplate() const override { return value.isTemplate(); }
    const platform::ImageAsset& value;
};

} // namespace

Color BundleAssetSource::color(std::string_view name) const {
    return makeColor(catalog_.color(text(name)));
}

Color BundleAssetSource::clearColor() const {
    return makeColor(Qt::transparent);
}

Image BundleAssetSource::image(std::string_view name) const {
    return makeImage(catalog_.image(text(name)));
}

Font BundleAssetSource::systemFont(double size, FontWeight weight, FontDigits digits) const {
    return makeFont(platform::systemFont(
        size, weight == FontWeight::medium ? QFont::Medium : QFont::Normal,
        platform::FontDesign::standard,
        digits == FontDigits::monospaced ? platform::FontDigits::monospaced
                                         : platform::FontDigits::proportional));
}

void installKitAssets() {
    if (!hasAssetSource()) {
        setAssetSource(std::make_shared<BundleAssetSource>(resourceBundle().assets()));
    }
}

Color makeColor(const QColor& color) {
    return color.isValid() ? Color(std::make_shared<QtColor>(color)) : Color();
}

Font makeFont(const QFont& font) {
    return Font(std::make_shared<QtFont>(font));
}

Image makeImage(const platform::ImageAsset* image) {
    return image != nullptr ? Image(std::make_shared<BundleImage>(*image)) : Image();
}

QColor toQColor(const Color& color) {
    const auto* const known = dynamic_cast<const QtColor*>(color.get());
    return known != nullptr ? known->value : QColor(Qt::transparent);
}

QFont toQFont(const Font& font) {
    const auto* const known = dynamic_cast<const QtFont*>(font.get());
    return known != nullptr ? known->value : QFont();
}

const platform::ImageAsset* toImageAsset(const Image& image) {
    const auto* const known = dynamic_cast<const BundleImage*>(image.get());
    return known != nullptr ? &known->value : nullptr;
}

} // namespace driftwood
