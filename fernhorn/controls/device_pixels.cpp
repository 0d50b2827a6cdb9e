#include "fernhorn/controls/device_pixels.hpp"

#include <QImage>
#include <QPainter>

namespace fernhorn {

void drawDevicePixels(QPainter& painter, const QPointF& place, const QImage& image) {
    const QTransform toDevice = painter.deviceTransform();
    const double scale = toDevice.m11();
    const QPointF corner = QPointF(toDevice.map(place).toPoint());
    if (scale == 1) {
        painter.drawImage(corner - QPointF(toDevice.dx(), toDevice.dy()), image);
        return;
    }
    const QTransform fromDevice = toDevice.inverted();
    if (scale == 2) { // the paint engine copies these, too
        painter.drawImage(QRectF(fromDevice.map(corner), QSizeF(image.size()) / scale), image,
                          image.rect());
        return;
    }
    const QTransform before = painter.worldTransform();
    painter.setWorldTransform(fromDevice * before);
    painter.drawImage(corner, image);
    painter.setWorldTransform(before);
}

} // namespace fernhorn
