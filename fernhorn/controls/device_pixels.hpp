#pragma once

class QImage;
class QPainter;
class QPointF;

namespace fernhorn {

/// Copies an image pixel for pixel, its corner on the device pixel next to a place in the painter's
/// coordinates, which may be scaled and moved but not turned.
void drawDevicePixels(QPainter& painter, const QPointF& place, const QImage& image);

} // namespace fernhorn
