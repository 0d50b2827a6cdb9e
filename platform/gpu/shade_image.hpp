#pragma once

#include "platform/gpu/shader.hpp"

#include <QImage>
#include <QRect>

namespace platform {

/// Applies a shader on the processor to the pixels of an image in an area, which is clipped to the
/// image. The image is sRGB with 8 bit a component; one that is not premultiplied is made so. What
/// lies beyond sRGB is clipped, and light without coverage, which such an image cannot hold, is
/// lost. Any thread.
void shadeImage(QImage& image, const Shader& shader, const QRect& area);
inline void shadeImage(QImage& image, const Shader& shader) {
    shadeImage(image, shader, image.rect());
}

} // namespace platform
