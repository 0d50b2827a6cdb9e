#include "shaders/color_functions.hpp"

#include <cstddef>

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
    // One question at a time and no choice of what to write, so that no step has to branch.
    const auto smaller = [](float a, float b) { return b < a ? b : a; };
    const auto larger = [](float a, float b) { return a < b ? b : a; };
    LightRow::Component whole;
    for (std::size_t i = 0; i < LightRow::size; ++i) {
        whole[i] = light.alpha[i] > 0 ? light.alpha[i] : 1;
    }
    LightRow::Component share; // of the marker
    for (std::size_t i = 0; i < LightRow::size; ++i) {
        const float low = smaller(seen.red[i], smaller(seen.green[i], seen.blue[i]));
        const float high = larger(seen.red[i], larger(seen.green[i], seen.blue[i]));
        const float slack = rounding * larger(larger(high, -low), 1e-6F);
        share[i] = larger(-low, high - whole[i]) > slack ? 1.0F : 0.0F;
    }
    const auto mark = [&](LightRow::Component& component, float value) {
        for (std::size_t i = 0; i < LightRow::size; ++i) {
            component[i] += (value * whole[i] - component[i]) * share[i];
        }
    };
    mark(light.red, marker[0]);
    mark(light.green, marker[1]);
    mark(light.blue, marker[2]);
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
