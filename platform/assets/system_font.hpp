#pragma once

#include <QFont>

namespace platform {

enum class FontDesign { standard, rounded };

/// Whether every digit is as wide as the others, for numbers below each other.
enum class FontDigits { proportional, monospaced };

/// The desktop's own typeface at a size in points; the rounded design is the family
/// "Fennick Rounded" where the program has registered it, else the standard one. Digits of one
/// width come from that face where it has them, else from one of the desktop's that has. Main
/// thread.
QFont systemFont(double size, QFont::Weight weight, FontDesign design = FontDesign::standard,
                 FontDigits digits = FontDigits::proportional);

} // namespace platform
