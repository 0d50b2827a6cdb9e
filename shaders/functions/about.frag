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
const int STEPS = 7;                        // along a shaft
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

// The noise in four sizes of grain, the coarsest first, about 0..1 each.
vec3 grain(vec2 at)
{
    vec4 n = texture(noiseTexture, at);
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
    vec3 far = grain(0.5 * field + fract(t * vec2(41.0, -23.0)));
    vec3 near = grain(field + 0.16 * (far.xy - 0.5) + fract(t * vec2(-83.0, 59.0)));
    float bank = far.r * 1.1 + near.r * 0.9 + 0.25 * (near.g - 0.5) + 0.12 * wave(97.0 * t + dot(field, vec2(0.9, 0.5)));
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
    vec3 sum = here * face + rim * (0.25 + 1.1 * bank) * (color + 0.25);

    // Shafts: what streams outwards from the logo, step by step back towards where it comes from.
    float level = log2(max(shape.x, shape.y) / BLURRED);
    float stream = 0.0;
    float weight = 1.0;
    vec2 back = place;
    for (int i = 0; i < STEPS; ++i) {
        stream += weight * softCover(back, level);
        back *= 0.925;
        weight *= 0.84;
    }
    vec2 direction = at * inversesqrt(dot(at, at) + 400.0);
    float shaft = grain(0.35 * direction + fract(t * vec2(53.0, 31.0))).g;
    shaft = clamp(2.4 * shaft - 0.7, 0.0, 1.6);
    sum += (1.0 - here) * stream * (0.10 * shaft * (0.35 + bank)) * color;

    // In the air.
    float away = dot(at, at) / (120.0 * 120.0);
    sum += (1.0 - 0.8 * here) * (0.012 + 0.12 * bank) / (1.0 + away * (0.6 + 0.4 * away)) * tint(0.75 * hue);

    light = vec4(sum * shore(point, size, scale * vec2(90.0, 70.0)), 0.0);
}
