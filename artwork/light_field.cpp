#include "artwork/light_field.hpp"

#include <algorithm>
#include <cmath>

namespace artwork {

namespace {

float toLinear(float v) {
    return v <= 0.04045F ? v / 12.92F : std::pow((v + 0.055F) / 1.055F, 2.4F);
}

float toEncoded(float v) {
    return v <= 0.0031308F ? v * 12.92F : 1.055F * std::pow(v, 1 / 2.4F) - 0.055F;
}

} // namespace

LightField::LightField(int width, int height) : width_(width), height_(height) {
    for (auto& plane : planes_) {
        plane.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    }
}

LightField::Light LightField::light(const QColor& color, double strength) {
    const auto s = static_cast<float>(strength);
    return {toLinear(color.redF()) * s, toLinear(color.greenF()) * s, toLinear(color.blueF()) * s};
}

void LightField::add(int x, int y, const Light& light, float amount) {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) {
        return;
    }
    const auto index = static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                       static_cast<std::size_t>(x);
    for (std::size_t i = 0; i < planes_.size(); ++i) {
        planes_[i][index] += light[i] * amount;
    }
}

void LightField::bloom(double deviation, float amount) {
    for (auto& plane : planes_) {
        auto spread = plane;
        blurPlane(spread, width_, height_, deviation);
        std::ranges::transform(plane, spread, plane.begin(),
                               [amount](float a, float b) { return a + amount * b; });
    }
}

void LightField::shineOn(QImage& image, const Mask& mask) const {
    for (int y = 0; y < height_; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width_; ++x) {
            const auto index = static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                               static_cast<std::size_t>(x);
            const int alpha = qAlpha(line[x]);
            const float through = mask.at(x, y);
            if (alpha == 0 || through <= 0) {
                continue;
            }
            const QRgb under = qUnpremultiply(line[x]);
            const std::array channels{qRed(under), qGreen(under), qBlue(under)};
            std::array<int, 3> lit{};
            for (std::size_t i = 0; i < lit.size(); ++i) {
                const float dark = 1 - toLinear(static_cast<float>(channels[i]) / 255.0F);
                // Approaches white smoothly instead of being cut off at it.
                const float result = 1 - dark * std::exp(-planes_[i][index] * through);
                lit[i] = static_cast<int>(std::lround(toEncoded(result) * 255.0F));
            }
            line[x] = qPremultiply(qRgba(lit[0], lit[1], lit[2], alpha));
        }
    }
}

} // namespace artwork
