#pragma once

#include <span>
#include <string_view>

namespace artwork {

/// A face that programs ask for by its exact name, and how the font system knows it.
struct Face {
    std::string_view bundle;
    std::string_view name;
    std::string_view file; ///< in the bundle's folder Fonts
    std::string_view family;
    std::string_view style;
    int weight = 400; ///< 1…1000
};

/// Every face of every bundle.
[[nodiscard]] std::span<const Face> faces();

} // namespace artwork
