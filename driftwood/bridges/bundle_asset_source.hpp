#pragma once

#include "driftwood/style/asset_source.hpp"

#include <QColor>
#include <QFont>

namespace platform {
class AssetCatalog;
class ImageAsset;
} // namespace platform

namespace driftwood {

/// The assets of a resource bundle for the styles. Main thread.
class BundleAssetSource final : public AssetSource {
  public:
    /// The catalogue outlives the source and every handle from it.
    explicit BundleAssetSource(const platform::AssetCatalog& catalog) : catalog_(catalog) {}

    [[nodiscard]] Color color(std::string_view name) const override;
    [[nodiscard]] Color clearColor() const override;
    [[nodiscard]] Image image(std::string_view name) const override;
    /// The digits of the desktop's typefaces are of one width as they come; nothing in the toolkit
    /// chooses between kinds of digits.
    [[nodiscard]] Font systemFont(double size, FontWeight weight, FontDigits digits) const override;

  private:
    const platform::AssetCatalog& catalog_;
};

/// Gives the styles the assets of the kit's own bundle, unless a source is there already. For the
/// start of a program, and for the first use of a control. Main thread.
void installKitAssets();

// Handles for what the toolkit draws with, to put into styles. An invalid colour and a null image
// give null handles. The image outlives the handle.
[[nodiscard]] Color makeColor(const QColor& color);
[[nodiscard]] Font makeFont(const QFont& font);
[[nodiscard]] Image makeImage(const platform::ImageAsset* image);

// And back. A null handle, or one from a source of another kind, gives the transparent colour, the
// program's font, and no image.
[[nodiscard]] QColor toQColor(const Color& color);
[[nodiscard]] QFont toQFont(const Font& font);
[[nodiscard]] const platform::ImageAsset* toImageAsset(const Image& image);

} // namespace driftwood
