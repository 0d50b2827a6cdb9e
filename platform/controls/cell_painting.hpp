#pragma once

#include "core/geometry.hpp"

#include <QColor>
#include <QRectF>

class QPainter;

// All of this is for the main thread.
namespace platform {

class ImageAsset;

/// What a cell is painted with. The painter is as the caller wants it back.
struct CellCanvas {
    QPainter& painter;
    QColor controlTextColor; ///< template images are filled with it
    bool isRightToLeft = false;
    bool mirrorsImages = false; ///< left and right change places within an image
};

inline QRectF toQRectF(const core::Rect& rect) {
    return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}
inline core::Rect toRect(const QRectF& rect) {
    return {{rect.x(), rect.y()}, {rect.width(), rect.height()}};
}

/// Whether an image that another size is asked of does what it says of itself, or is stretched.
enum class CellImageResizing { asTheImageSays, stretch };

/// Paints an image of a cell, bezels and glyphs alike, at an opacity: the nine parts are put
/// together once for a size and scale and then kept. Edges fall on device pixels.
void paintCellImage(const CellCanvas& canvas, const core::Rect& rect, const ImageAsset& image,
                    double opacity, CellImageResizing resizing = CellImageResizing::asTheImageSays);

} // namespace platform
