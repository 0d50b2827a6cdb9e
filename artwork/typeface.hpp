#pragma once

#include <QPainterPath>
#include <QString>

namespace artwork {

/// The outlines of a line of text, free of hinting and of the fonts of the machine.
struct TextOutline {
    QPainterPath path; ///< the origin is at the left end of the base line
    double width = 0;  ///< points, up to where the next letter would stand
};

/// Sets `text` in the font file at `size` points, with `tracking` points more between letters;
/// stops the program if the file is no font. Needs a QGuiApplication.
[[nodiscard]] TextOutline outlineOf(const QString& text, const QString& fontFile, double size,
                                    double tracking = 0);

} // namespace artwork
