#pragma once

#include "core/geometry.hpp"

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// How an image fills a rectangle that is larger than it is.
enum class ImageResizing { none, stretch, tile };

/// What the manifest says of one image. Sizes and insets are in points.
struct ImageEntry {
    core::Size size;
    core::EdgeInsets capInsets; ///< the corners and edges that keep their size when it is resized
    ImageResizing resizing = ImageResizing::none;
    bool isTemplate = false;             ///< only its coverage counts; it is drawn in one colour
    std::map<int, std::string> variants; ///< file name, relative to the bundle, by scale (1, 2, 3)
};

/// The colour space of a colour's components.
enum class ColorEncoding { sRGB, displayP3 };

/// A colour with components from 0 to 1: red, green, blue, alpha (not premultiplied).
struct ColorEntry {
    ColorEncoding encoding = ColorEncoding::sRGB;
    std::array<double, 4> components{};
};

/// Where a typeface is found under the name that programs ask for.
struct FaceEntry {
    std::string family;
    std::string style;
    int weight = 400; ///< 1 to 1000
};

/// The table of contents of a resource bundle, its file "Assets.json": images, colours and
/// typefaces by name. The format is described in artwork/README.md. Any thread.
struct AssetManifest {
    std::map<std::string, ImageEntry, std::less<>> images;
    std::map<std::string, ColorEntry, std::less<>> colors;
    std::vector<std::string> fonts; ///< file names relative to the bundle
    std::map<std::string, FaceEntry, std::less<>> faces;

    /// Reads a manifest. Entries that make no sense are left out, and so is everything when the
    /// text is not a JSON object: a missing asset has its own outcome where it is used. File names
    /// that lead out of the bundle make no sense. Never throws.
    static AssetManifest parse(std::string_view json) noexcept;
};

} // namespace platform
