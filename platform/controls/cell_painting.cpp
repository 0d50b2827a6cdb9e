#include "platform/controls/cell_painting.hpp"

#include "platform/assets/asset_catalog.hpp"
#include "platform/assets/image_painter.hpp"

#include <QCache>
#include <QPainter>

namespace platform {
namespace {

/// A picture that was put together from an image.
struct PictureKey {
    qint64 image; // the pixels' own key: it is never used again
    QSize size;   // device pixels
    QRgb tint;
    bool isStretched;
    bool isMirrored;
    friend bool operator==(const PictureKey&, const PictureKey&) = default;
};

size_t qHash(const PictureKey& key, size_t seed = 0) {
    return qHashMulti(seed, key.image, key.size.width(), key.size.height(), key.tint,
                      key.isStretched, key.isMirrored);
}

constexpr qsizetype keptBytes = 8 * 1024 * 1024;

QImage stretched(const ImageAsset& image, QSize size, qreal scale, const QColor& tint) {
    // An image that says how it is resized keeps its caps; another one is resized as a whole.
    QImage picture =
        image.image(scale).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (image.isTemplate()) {
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), tint);
    }
    picture.setDevicePixelRatio(scale);
    return picture;
}

QImage makePicture(const ImageAsset& image, QSize size, qreal scale, const QColor& tint,
                   bool isStretched) {
    if (isStretched && image.resizing() == ImageResizing::none) {
        return stretched(image, size, scale, tint);
    }
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    picture.setDevicePixelRatio(scale);
    QPainter painter(&picture);
    const QRectF all(QPointF(), QSizeF(size) / scale);
    paintImage(painter, all, image, tint, isStretched);
    return picture;
}

} // namespace

void paintCellImage(const CellCanvas& canvas, const core::Rect& rect, const ImageAsset& image,
                    double opacity, CellImageResizing resizing) {
    static QCache<PictureKey, QImage> pictures(keptBytes);
    QPainter& painter = canvas.painter;
    const qreal before = painter.opacity();
    const QColor tint = image.isTemplate() ? canvas.controlTextColor : QColor(Qt::black);
    const bool isStretched = resizing == CellImageResizing::stretch &&
                             QSizeF(rect.size.width, rect.size.height) != image.size();
    if (image.resizing() == ImageResizing::none && !isStretched && !canvas.mirrorsImages) {
        painter.setOpacity(before * opacity);
        paintImage(painter, toQRectF(rect), image, tint);
        painter.setOpacity(before);
        return;
    }
    const QTransform toDevice = painter.deviceTransform();
    const qreal scale = toDevice.m11();
    const QImage& pixels = image.image(scale);
    const QRectF exact = toDevice.mapRect(toQRectF(rect));
    const QPoint from(qRound(exact.left()), qRound(exact.top()));
    const QSize size(qRound(exact.right()) - from.x(), qRound(exact.bottom()) - from.y());
    if (pixels.isNull() || size.isEmpty()) {
        return;
    }
    const PictureKey key{pixels.cacheKey(), size, tint.rgba(), isStretched, canvas.mirrorsImages};
    const QImage* picture = pictures.object(key);
    QImage uncached;
    if (picture == nullptr) {
        uncached = makePicture(image, size, scale, tint, isStretched);
        if (canvas.mirrorsImages) {
            uncached = uncached.mirrored(true, false);
        }
        picture = &uncached;
        pictures.insert(key, new QImage(uncached), uncached.sizeInBytes());
    }
    const QPointF place = toDevice.inverted().map(QPointF(from));
    painter.setOpacity(before * opacity);
    painter.drawImage(place, *picture);
    painter.setOpacity(before);
}

} // namespace platform
