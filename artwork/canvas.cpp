#include "artwork/canvas.hpp"

#include "core/fatal.hpp"

#include <algorithm>
#include <cmath>

namespace artwork {

namespace {

QImage emptyImage(core::Size size, int scale) {
    const auto pixels = [scale](double points) {
        return static_cast<int>(std::lround(points * scale));
    };
    QImage image(pixels(size.width), pixels(size.height), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        core::fatal("no memory for an image of that size, or the size is not positive");
    }
    image.fill(Qt::transparent);
    return image;
}

void prepare(QPainter& painter, int scale) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.setPen(Qt::NoPen);
}

} // namespace

Canvas::Canvas(core::Size size, int scale)
    : size_(size), scale_(scale), image_(emptyImage(size, scale)), painter_(&image_) {
    prepare(painter_, scale);
}

double Canvas::snapped(double points) const {
    return std::round(points * scale_) / scale_;
}

double Canvas::lineWidth(double points) const {
    return std::max(1.0, std::round(points * scale_)) / scale_;
}

void Canvas::fill(const QPainterPath& path, const QBrush& brush) {
    painter_.fillPath(path, brush);
}

void Canvas::stroke(const QPainterPath& path, const QColor& color, double width) {
    painter_.strokePath(path, QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

Mask Canvas::mask(const QPainterPath& path) const {
    auto coverage = emptyImage(size_, scale_);
    QPainter painter(&coverage);
    prepare(painter, scale_);
    painter.fillPath(path, Qt::black);
    painter.end();
    return Mask::ofAlpha(coverage);
}

Mask Canvas::softened(const Mask& mask, double radius) const {
    // A blurred edge is about four deviations wide.
    return mask.blurred(radius * scale_ / 2);
}

void Canvas::paint(const Mask& mask, const QColor& color) {
    painter_.save();
    painter_.resetTransform();
    painter_.drawImage(0, 0, mask.tinted(color));
    painter_.restore();
}

QImage Canvas::finish() {
    painter_.end();
    return image_;
}

} // namespace artwork
