#include "platform/gpu/shader_effect.hpp"

#include "platform/gpu/shade_image.hpp"

#include <QPaintEngine>
#include <QPainter>

#include <utility>

namespace platform {

ShaderEffect::ShaderEffect(std::optional<Shader> shader, QObject* parent)
    : QGraphicsEffect(parent), shader_(std::move(shader)) {}

void ShaderEffect::setShader(std::optional<Shader> shader) {
    if (shader_ != shader) {
        shader_ = std::move(shader);
        update();
    }
}

void ShaderEffect::draw(QPainter* painter) {
    if (!shader_ || shader_->onProcessor == nullptr) {
        drawSource(painter);
        return;
    }
    QPoint offset;
    const QPixmap source = sourcePixmap(Qt::LogicalCoordinates, &offset, NoPad);
    if (source.isNull()) {
        return;
    }
    // Only what is being repainted, in the source's pixels.
    QRect part = source.rect();
    const QRegion dirty = painter->paintEngine()->systemClip();
    if (!dirty.isEmpty()) {
        const double scale = source.devicePixelRatio();
        const QTransform toPixels = painter->deviceTransform().inverted() *
                                    QTransform::fromTranslate(-offset.x(), -offset.y()) *
                                    QTransform::fromScale(scale, scale);
        part =
            toPixels.mapRect(QRectF(dirty.boundingRect())).toAlignedRect().adjusted(-1, -1, 1, 1);
    }
    QImage image = source.toImage();
    shadeImage(image, *shader_, part);
    painter->drawImage(offset, image);
}

} // namespace platform
