#include "artwork/typeface.hpp"

#include "core/fatal.hpp"

#include <QRawFont>
#include <QTransform>

namespace artwork {

TextOutline outlineOf(const QString& text, const QString& fontFile, double size, double tracking) {
    // Read at a large size and scaled down, so that no rounding to pixels is left in the curves.
    constexpr double designSize = 1000;
    const QRawFont font(fontFile, designSize, QFont::PreferNoHinting);
    if (!font.isValid()) {
        core::fatal(("no font can be read from " + fontFile).toStdString());
    }
    const auto glyphs = font.glyphIndexesForString(text);
    const auto advances =
        font.advancesForGlyphIndexes(glyphs, QRawFont::UseDesignMetrics | QRawFont::KernedAdvances);
    const double factor = size / designSize;

    TextOutline result;
    result.path.setFillRule(Qt::WindingFill);
    for (int i = 0; i < glyphs.size(); ++i) {
        const auto placed =
            QTransform::fromScale(factor, factor) * QTransform::fromTranslate(result.width, 0);
        result.path.addPath(placed.map(font.pathForGlyph(glyphs[i])));
        result.width += advances[i].x() * factor + tracking;
    }
    return result;
}

} // namespace artwork
