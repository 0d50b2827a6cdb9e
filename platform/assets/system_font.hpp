#pragma once

#include <QFont>

namespace platform {

enum class FontDesign { standard, rounded };

/// The desktop's own typeface at a size in points; the rounded design is the family
/// "Fennick Rounded" where the program has registered it, else the standard one.
QFont systemFont(double size, QFont::Weight weight, FontDesign design = FontDesign::standard);

} // namespace platform
