#include "platform/assets/image_painter.hpp"

#include "platform/assets/asset_catalog.hpp"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>

namespace platform {
namespace {

struct Span {
    int begin;
    int end;
};

/// One axis of a nine-part image: its leading cap, its middle and its trailing cap, in pixels.
struct Axis {
    std::array<Span, 3> source;
    std::array<Span, 3> target;
};

Axis divide(int sourceLength, int leadingCap, int trailingCap, int targetBegin, int targetEnd) {
    const int length = targetEnd - targetBegin;
    // A target smaller than both caps cuts them in the middle instead of letting them overlap.
    const int leading = std::min(leadingCap, (length + 1) / 2);
    const int trailing = std::min(trailingCap, length - leading);
    Span middle{leading, sourceLength - trailing};
    if (middle.begin >= middle.end) {
        // Caps that leave no middle, or none after rounding: their last pixels fill the gap.
        middle = {std::max(leading - 1, 0), std::max(leading, 1)};
    }
    return {{{{0, leading}, middle, {sourceLength - trailing, sourceLength}}},
            {{{targetBegin, targetBegin + leading},
              {targetBegin + leading, targetEnd - trailing},
              {targetEnd - trailing, targetEnd}}}};
}

QRect rectangle(const Span& x, const Span& y) {
    return {QPoint(x.begin, y.begin), QPoint(x.end - 1, y.end - 1)};
}

void paintPart(QPainter& painter, const QRect& target, const QImage& image, const QRect& source,
               bool tile) {
    if (target.isEmpty() || source.isEmpty()) {
        return;
    }
    if (!tile) {
        painter.drawImage(target, image, source);
        return;
    }
    for (int y = target.top(); y <= target.bottom(); y += source.height()) {
        for (int x = target.left(); x <= target.right(); x += source.width()) {
            const QSize part(std::min(source.width(), target.right() + 1 - x),
                             std::min(source.height(), target.bottom() + 1 - y));
            painter.drawImage(QPoint(x, y), image, QRect(source.topLeft(), part));
        }
    }
}

QImage tinted(const QImage& image, const QColor& tint) {
    QImage result = image;
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(result.rect(), tint);
    return result;
}

} // namespace

void paintImage(QPainter& painter, const QRectF& rect, const ImageAsset& asset, const QColor& tint,
                bool isStretched) {
    // In device pixels, with antialiasing off: rectangles that end between pixels leave seams.
    const QTransform toDevice = painter.deviceTransform();
    const qreal scale = toDevice.m11();
    const QImage& pixels = asset.image(scale);
    if (pixels.isNull() || rect.isEmpty()) {
        return;
    }
    const QRectF exact = toDevice.mapRect(rect);
    QRect target(QPoint(qRound(exact.left()), qRound(exact.top())),
                 QPoint(qRound(exact.right()) - 1, qRound(exact.bottom()) - 1));
    const QImage image = asset.isTemplate() ? tinted(pixels, tint) : pixels;

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    // The device transform of a widget's painter has an offset that resetTransform keeps.
    const QTransform fromDevice = toDevice.inverted();
    painter.setTransform(fromDevice * painter.worldTransform());
    if (asset.resizing() == ImageResizing::none) {
        target = QRect(target.center() - image.rect().center(), image.size());
        painter.drawImage(target.topLeft(), image);
    } else {
        const QMarginsF caps = asset.capInsets() * scale;
        const Axis x = divide(image.width(), qRound(caps.left()), qRound(caps.right()),
                              target.left(), target.right() + 1);
        const Axis y = divide(image.height(), qRound(caps.top()), qRound(caps.bottom()),
                              target.top(), target.bottom() + 1);
        for (std::size_t row = 0; row < 3; ++row) {
            for (std::size_t column = 0; column < 3; ++column) {
                const bool isMiddle = row == 1 || column == 1;
                paintPart(painter, rectangle(x.target[column], y.target[row]), image,
                          rectangle(x.source[column], y.source[row]),
                          isMiddle && !isStretched && asset.resizing() == ImageResizing::tile);
            }
        }
    }
    painter.restore();
}

} // namespace platform
