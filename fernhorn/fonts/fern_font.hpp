#pragma once

#include <QFont>
#include <QString>

#include <array>
#include <cstdint>

class QWidget;

// All of this is for the main thread.
namespace fernhorn {

/// The kit's typefaces. The program that hosts the views registers them
/// (`resourceBundle().assets().registerFonts()`).
enum class FernFont : std::uint8_t { rocket, dosisLight, dosisMedium };

inline constexpr std::array allFernFonts{FernFont::rocket, FernFont::dosisLight,
                                         FernFont::dosisMedium};

/// The exact name of a face.
QString fontName(FernFont font);

/// Gives a view, and all text in it that has no font of its own, one of the kit's faces.
struct CustomFontModifier {
    FernFont font;
    double size; ///< points

    [[nodiscard]] QFont resolved() const;
    void apply(QWidget& view) const;
};

/// Applies `CustomFontModifier` to a view.
void fernFont(QWidget& view, FernFont font, double size);
/// The same with the face `rocket`.
void rocketFont(QWidget& view, double size);

} // namespace fernhorn
