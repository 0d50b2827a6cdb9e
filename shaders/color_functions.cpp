#include "shaders/color_functions.hpp"

#include <algorithm>
#include <cmath>

namespace kestrel {
namespace {

using platform::Float4;
using platform::LightRow;
using Arguments = platform::Shader::Arguments;

constexpr float rounding = 0.001F; // of a 16-bit float, with room to spare
constexpr Float4 orange{1, 0.323143F, 0.068478F};
constexpr Float4 red{1, 0.074214F, 0.144128F};
constexpr Arguments identity{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
// Linear sRGB to linear Display P3 (SMPTE EG 432-1, D65).
constexpr Arguments toDisplayP3{{{0.8224620F, 0.1775380F, 0, 0},
                                 {0.0331942F, 0.9668058F, 0, 0},
                                 {0.0170826F, 0.0723974F, 0.9105199F, 0},
                                 {0, 0, 0, 1}}};

/// Puts the marker in the place of colours with a component outside of 0 … 1, as seen with other
/// primaries.
void markOutside(LightRow& light, const Arguments& toPrimaries, const Float4& marker) {
    LightRow seen = light;
    colorMatrix(seen, toPrimaries);
    for (std::size_t i = 0; i < LightRow::size; ++i) {
        const float low = std::min(seen.red[i], std::min(seen.green[i], seen.blue[i]));
        const float high = std::max(seen.red[i], std::max(seen.green[i], seen.blue[i]));
        const float slack = rounding * std::max(std::max(high, -low), 1e-6F);
        const float whole = light.alpha[i] > 0 ? light.alpha[i] : 1;
        const bool isOutside = (low < -slack) | (high > whole + slack);
        light.red[i] = isOutside ? marker[0] * whole : light.red[i];
        light.green[i] = isOutside ? marker[1] * whole : light.green[i];
        light.blue[i] = isOutside ? marker[2] * whole : light.blue[i];
    }
}

} // namespace

void colorMatrix(LightRow& light, const Arguments& rows) {
    const auto row = [](const Float4& factors, float r, float g, float b, float a) {
        return factors[0] * r + factors[1] * g + factors[2] * b + factors[3] * a;
    };
    for (std::size_t i = 0; i < LightRow::size; ++i) {
        const float r = light.red[i];
        const float g = light.green[i];
        const float b = light.blue[i];
        const float a = light.alpha[i];
        light.red[i] = row(rows[0], r, g, b, a);
        light.green[i] = row(rows[1], r, g, b, a);
        light.blue[i] = row(rows[2], r, g, b, a);
        light.alpha[i] = row(rows[3], r, g, b, a);
    }
}

void outsideSRGB(LightRow& light, const Arguments& /*none*/) {
    markOutside(light, identity, orange);
}

void outsideP3(LightRow& light, const Arguments& /*none*/) {
    markOutside(light, toDisplayP3, red);
}

} // namespace kestrel
