#version 440
#extension GL_GOOGLE_include_directive : require
#include "family.glsl"

// The maker's logo in a dark room. Light drifts past it: two sheets of the noise image move through
// each other, and where both are bright lies a bank of light, purple where it is calm and aqua
// where it is strong, with a rare warm gleam. On the logo it is seen in full, beyond 1.0 in the
// cores, with a thin rim at the upper left; in the air around only as a faint glow; and what falls
// on the logo streams on from it in shafts. The picture follows from the logo, the noise, the size
// in pixels and the time in seconds. The result is light to add to the ground: linear, alpha 0, and
// nothing at all along the four edges.

layout(location = 0) in vec2 point;
layout(location = 0) out vec4 light;

layout(std140, binding = 0) uniform Uniforms {
    vec2 resolution;
    float time;
};
layout(binding = 1) uniform sampler2D logoTexture;
layout(binding = 2) uniform sampler2D noiseTexture;    // not "noise", which the compiler renames

const vec2 DESIGN = vec2(400.0, 300.0);     // the picture in points
const float LOGO = 168.0;                   // the logo's longer side in points
const float TILE = 420.0;                   // one tile of the noise in points
const int STEPS = 8;                        // along a shaft
const float STEP = 0.935;                   // from one step to the next
const float REACH = 0.856;                  // of a shaft: 0.5 over STEP to the power of STEPS
const mat2 TURN = mat2(0.8, 0.6, -0.6, 0.8); // of the nearer sheet, so that no grid shows
const float BLURRED = 40.0;                 // size of the logo in pixels that shafts are made from

// How much of the logo is at a place, in parts of its size from its centre.
float cover(vec2 at)
{
    vec2 inside = step(abs(at), vec2(0.5));
    return texture(logoTexture, vec2(at.x, -at.y) + 0.5).a * inside.x * inside.y;
}

// The same from a size of the image at which it is blurred.
float softCover(vec2 at, float level)
{
    vec2 inside = step(abs(at), vec2(0.5));
    return textureLod(logoTexture, vec2(at.x, -at.y) + 0.5, level).a * inside.x * inside.y;
}

// Even in every small neighbourhood (J. Jimenez, 2014), 0..1: where a pixel's first step lies, so
// that the steps of neighbours do not add up to stripes.
float jitter(vec2 pixel)
{
    return fract(52.9829189 * fract(dot(pixel, vec2(0.06711056, 0.00583715))));
}

// The noise in four sizes of grain, the coarsest first, about 0..1 each.
// Its texels are blended with a curve that is level at both ends; straight blends show as a grid.
vec3 grain(vec2 at)
{
    vec2 texels = vec2(textureSize(noiseTexture, 0));
    vec2 place = at * texels + 0.5;
    vec2 inside = fract(place);
    inside *= inside * (3.0 - 2.0 * inside);
    vec4 n = textureLod(noiseTexture, (floor(place) + inside - 0.5) / texels, 0.0);
    return n.rgb / max(n.a, 0.5);
}

void main()
{
    vec2 size = max(resolution, vec2(1.0));
    float scale = min(size.x / DESIGN.x, size.y / DESIGN.y);    // pixels in a point
    vec2 at = point * size * 0.5 / scale;                       // points from the centre
    float t = fract(time / PERIOD);                             // all rates below are whole numbers

    vec2 shape = vec2(textureSize(logoTexture, 0));
    vec2 extent = LOGO * shape / max(shape.x, shape.y);
    vec2 place = at / extent;

    // The banks of light.
    vec2 field = at / TILE;
    vec3 far = grain(0.5 * field + fract(t * vec2(20.0, -12.0)));
    vec3 near = grain(TURN * field + 0.16 * (far.xy - 0.5) + fract(t * vec2(-42.0, 30.0)));
    float bank = far.r * 1.1 + near.r * 0.9 + 0.25 * (near.g - 0.5) + 0.12 * wave(48.0 * t + dot(field, vec2(0.9, 0.5)));
    bank = clamp((bank - 0.82) * 2.1, 0.0, 1.4);
    bank *= bank;
    float hue = 0.05 + 0.55 * bank + 0.9 * (far.g - 0.42);
    vec3 color = tint(hue);

    // On the logo.
    float here = cover(place);
    vec2 toLamp = vec2(-1.3, 1.3) / extent;
    float rim = clamp(here - cover(place + toLamp), 0.0, 1.0);
    vec3 face = color * (0.10 + 1.9 * bank) + vec3(0.42, 0.38, 0.45) * bank * bank;
    face += ORANGE * clamp(0.9 * bank - 1.0, 0.0, 0.8);
    // Never flat and never blown out: its strongest component stays within 0.25 and 1.2.
    float strength = max(face.r, max(face.g, face.b));
    face *= (0.25 + 0.95 * strength / (strength + 0.8)) / max(strength, 1e-3);
    vec3 sum = here * face + rim * (0.25 + 1.1 * bank) * (color + 0.25);

    // Shafts: what streams outwards from the logo, step by step back towards where it comes from.
    float level = log2(max(shape.x, shape.y) / BLURRED);
    float stream = 0.0;
    float weight = 0.88;
    vec2 back = place * mix(1.0, STEP, jitter(gl_FragCoord.xy));
    // Nothing reaches further, the logo being round, and a loop of no rounds is skipped.
    int count = dot(place, place) < REACH * REACH && here < 1.0 ? STEPS : 0;
    for (int i = 0; i < count; ++i) {
        stream += weight * softCover(back, level);
        back *= STEP;
        weight *= 0.86;
    }
    vec2 direction = at * inversesqrt(dot(at, at) + 400.0);
    float shaft = texture(noiseTexture, 0.35 * direction + fract(t * vec2(26.0, 16.0))).g;
    shaft = clamp(2.4 * shaft - 0.7, 0.0, 1.6);
    sum += (1.0 - here) * stream * (0.10 * shaft * (0.35 + bank)) * color;

    // In the air.
    float away = dot(at, at) / (120.0 * 120.0);
    sum += (1.0 - 0.8 * here) * (0.012 + 0.12 * bank) / (1.0 + away * (0.6 + 0.4 * away)) * tint(0.75 * hue);

    light = vec4(sum * shore(point, size, scale * vec2(90.0, 70.0)), 0.0);
}
