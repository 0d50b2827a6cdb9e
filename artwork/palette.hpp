#pragma once

#include <QColor>
#include <span>
#include <string_view>

namespace artwork {

/// A colour of a bundle's manifest.
struct NamedColor {
    std::string_view bundle;
    std::string_view name;
    QRgb rgb = 0; ///< sRGB, opaque
};

/// Every colour of every bundle; a name stands for the same colour in all of them.
[[nodiscard]] std::span<const NamedColor> palette();

/// The colour with this name; stops the program if there is none. `opacity` is 0…1.
[[nodiscard]] QColor color(std::string_view name, double opacity = 1);

/// The colour `amount` of the way from `from` to `to`, 0…1.
[[nodiscard]] QColor mixed(const QColor& from, const QColor& to, double amount);

} // namespace artwork
