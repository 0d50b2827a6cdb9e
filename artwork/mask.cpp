#include "artwork/mask.hpp"

#include "core/fatal.hpp"

#include <algorithm>
#include <cmath>
#include <functional>

namespace artwork {

namespace {

std::vector<float> gaussian(double deviation) {
    const int radius = static_cast<int>(std::ceil(deviation * 3));
    std::vector<float> kernel;
    double sum = 0;
    for (int i = -radius; i <= radius; ++i) {
        const double weight = std::exp(-0.5 * i * i / (deviation * deviation));
        kernel.push_back(static_cast<float>(weight));
        sum += weight;
    }
    for (auto& weight : kernel) {
        weight = static_cast<float>(weight / sum);
    }
    return kernel;
}

/// Blurs `count` values that stand `stride` apart; `line` is scratch space.
void blurLine(float* values, int count, int stride, const std::vector<float>& kernel,
              std::vector<float>& line) {
    const int radius = static_cast<int>(kernel.size() / 2);
    line.resize(static_cast<std::size_t>(count + 2 * radius));
    for (int i = 0; i < count + 2 * radius; ++i) {
        const int source = std::clamp(i - radius, 0, count - 1);
        line[static_cast<std::size_t>(i)] = values[static_cast<std::ptrdiff_t>(source) * stride];
    }
    for (int i = 0; i < count; ++i) {
        float sum = 0;
        for (std::size_t k = 0; k < kernel.size(); ++k) {
            sum += kernel[k] * line[static_cast<std::size_t>(i) + k];
        }
        values[static_cast<std::ptrdiff_t>(i) * stride] = sum;
    }
}

} // namespace

void blurPlane(std::vector<float>& plane, int width, int height, double deviation) {
    if (deviation < 0.05) {
        return; // narrower than a pixel can show
    }
    const auto kernel = gaussian(deviation);
    std::vector<float> line;
    for (int y = 0; y < height; ++y) {
        blurLine(plane.data() + static_cast<std::ptrdiff_t>(y) * width, width, 1, kernel, line);
    }
    for (int x = 0; x < width; ++x) {
        blurLine(plane.data() + x, height, width, kernel, line);
    }
}

Mask::Mask(int width, int height, float value)
    : width_(width),
      height_(height),
      values_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), value) {}

Mask Mask::ofAlpha(const QImage& image) {
    Mask result(image.width(), image.height(), 0);
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            result.at(x, y) = static_cast<float>(qAlpha(line[x])) / 255.0F;
        }
    }
    return result;
}

Mask Mask::inverted() const {
    auto result = *this;
    std::ranges::transform(values_, result.values_.begin(), [](float v) { return 1 - v; });
    return result;
}

Mask Mask::operator*(const Mask& other) const {
    if (other.width_ != width_ || other.height_ != height_) {
        core::fatal("masks of different images cannot be combined");
    }
    auto result = *this;
    std::ranges::transform(values_, other.values_, result.values_.begin(), std::multiplies<>());
    return result;
}

Mask Mask::blurred(double deviation) const {
    auto result = *this;
    blurPlane(result.values_, width_, height_, deviation);
    return result;
}

QImage Mask::tinted(const QColor& color) const {
    QImage image(width_, height_, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        core::fatal("no memory for an image of that size");
    }
    for (int y = 0; y < height_; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width_; ++x) {
            const float alpha = std::clamp(at(x, y), 0.0F, 1.0F) * color.alphaF();
            const auto part = [alpha](float v) {
                return static_cast<int>(std::lround(v * alpha * 255.0F));
            };
            line[x] = qRgba(part(color.redF()), part(color.greenF()), part(color.blueF()), part(1));
        }
    }
    return image;
}

} // namespace artwork
