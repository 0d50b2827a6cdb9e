#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace platform {

class ImageAsset;

/// Paints an image into a rectangle (in the painter's coordinates, which may be scaled and moved
/// but not turned). Edges fall on device pixels. The caps keep their pixels as they are; the middle
/// is stretched or tiled as the asset says. An asset without resizing is centred at its own size.
/// A template image is painted in `tint`; `isStretched` stretches an image that would be tiled.
/// Does nothing when the image has no pixels. Main thread.
void paintImage(QPainter& painter, const QRectF& rect, const ImageAsset& image,
                const QColor& tint = Qt::black, bool isStretched = false);

} // namespace platform
