#include "platform/gpu/shade_image.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace platform {
namespace {

/// The transfer function of IEC 61966-2-1 in both directions. Every 8-bit code falls on a step, so
/// opaque pixels are decoded exactly; encoding is off by a tenth of a code at most.
class Curves {
  public:
    static constexpr int steps = 8 * 255;
    using Table = std::array<float, steps + 1>;

    Curves() {
        for (int i = 0; i <= steps; ++i) {
            const double x = static_cast<double>(i) / steps;
            const auto index = static_cast<std::size_t>(i);
            toLinear[index] =
                static_cast<float>(x <= 0.04045 ? x / 12.92 : std::pow((x + 0.055) / 1.055, 2.4));
            const double linear = x * x; // evenly spaced in the root, the curve is nearly straight
            toCode[index] = static_cast<float>(
                linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1 / 2.4) - 0.055);
        }
    }

    Table toLinear; ///< by the code
    Table toCode;   ///< by the square root of the light
};

const Curves& curves() {
    static const Curves made;
    return made;
}

using Row = LightRow::Component;
using Steps = std::array<std::int32_t, LightRow::size>;
using Pixels = std::array<std::uint32_t, LightRow::size>;

// Loops over a whole row with nothing but arithmetic, which the compiler turns into steps of
// several pixels, and in between the look-ups.

inline void look(const Curves::Table& table, const Steps& at, Row& result) {
    for (std::size_t i = 0; i < LightRow::size; ++i) {
        result[i] = table[static_cast<std::size_t>(at[i])];
    }
}

inline void unpack(const Pixels& pixels, int shift, Row& component) {
    for (std::size_t i = 0; i < LightRow::size; ++i) {
        component[i] = static_cast<float>(static_cast<std::int32_t>((pixels[i] >> shift) & 0xffU));
    }
}

inline void invert(const Row& values, float least, Row& result) {
    for (std::size_t i = 0; i < LightRow::size; ++i) {
        result[i] = 1 / std::max(values[i], least);
    }
}

inline void decode(const Curves::Table& toLinear, const LightRow& light, const Row& inverse,
                   Row& component) {
    Steps at;
    for (std::size_t i = 0; i < LightRow::size; ++i) {
        at[i] = static_cast<std::int32_t>(
            std::min(component[i] * inverse[i], 1.0F) * Curves::steps + 0.5F);
    }
    look(toLinear, at, component);
    for (std::size_t i = 0; i < LightRow::size; ++i) {
        component[i] *= light.alpha[i] * (1.0F / 255);
    }
}

inline void encode(const Curves::Table& toCode, const LightRow& light, const Row& inverse,
                   Row& component) {
    Steps at;
    for (std::size_t i = 0; i < LightRow::size; ++i) {
        // In this order a component that is no number becomes 0.
        const float clipped = std::min(std::max(0.0F, component[i] * inverse[i]), 1.0F);
        at[i] = static_cast<std::int32_t>(std::sqrt(clipped) * Curves::steps + 0.5F);
    }
    look(toCode, at, component);
    for (std::size_t i = 0; i < LightRow::size; ++i) {
        component[i] = component[i] * light.alpha[i] * 255 + 0.5F;
    }
}

inline void pack(const Row& component, int shift, Pixels& pixels) {
    for (std::size_t i = 0; i < LightRow::size; ++i) {
        pixels[i] |= static_cast<std::uint32_t>(static_cast<std::int32_t>(component[i])) << shift;
    }
}

// Twice as fast where the processor has wider registers, which is found out at run time.
// (Sanitizers are not up yet when it is.)
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) &&                             \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
__attribute__((target_clones("avx2", "default")))
#endif
void shade(Pixels& pixels, const Shader& shader, const Shader::Arguments& arguments) {
    const Curves& curve = curves();
    LightRow light;
    alignas(64) Row inverse; // of the alpha
    unpack(pixels, 24, light.alpha);
    const std::array<std::pair<Row*, int>, 3> colors{
        {{&light.red, 16}, {&light.green, 8}, {&light.blue, 0}}};
    invert(light.alpha, 1, inverse);
    for (const auto& [component, shift] : colors) {
        unpack(pixels, shift, *component);
        decode(curve.toLinear, light, inverse, *component);
    }
    for (float& alpha : light.alpha) {
        alpha *= 1.0F / 255;
    }
    shader.onProcessor(light, arguments);
    for (float& alpha : light.alpha) {
        alpha = std::min(std::max(0.0F, alpha), 1.0F);
    }
    invert(light.alpha, 1e-6F, inverse);
    pixels.fill(0);
    for (const auto& [component, shift] : colors) {
        encode(curve.toCode, light, inverse, *component);
        pack(*component, shift, pixels);
    }
    for (float& alpha : light.alpha) {
        alpha = alpha * 255 + 0.5F;
    }
    pack(light.alpha, 24, pixels);
}

} // namespace

void shadeImage(QImage& image, const Shader& shader, const QRect& area) {
    const QRect part = area.intersected(image.rect());
    if (shader.onProcessor == nullptr || part.isEmpty()) {
        return;
    }
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    const Shader::Arguments arguments = shader.paddedArguments();
    Pixels pixels{};
    for (int y = part.top(); y <= part.bottom(); ++y) {
        auto* const line = reinterpret_cast<std::uint32_t*>(image.scanLine(y));
        for (int x = part.left(); x <= part.right(); x += static_cast<int>(LightRow::size)) {
            const int count = std::min(static_cast<int>(LightRow::size), part.right() + 1 - x);
            std::copy_n(line + x, count, pixels.begin());
            shade(pixels, shader, arguments);
            std::copy_n(pixels.begin(), count, line + x);
        }
    }
}

} // namespace platform
