#version 440
#extension GL_GOOGLE_include_directive : require
#include "family.glsl"

// The maker's logo in a dark room, lit by light that drifts past.

layout(location = 0) in vec2 point;
layout(location = 0) out vec4 light;

layout(std140, binding = 0) uniform Uniforms {
    vec2 resolution;
    float time;
};
layout(binding = 1) uniform sampler2D logo;
layout(binding = 2) uniform sampler2D noise;

const vec2 DESIGN = vec2(400.0, 300.0);     // the picture in points
const float LOGO = 150.0;                   // the logo's longer side in points
const int STEPS = 8;                        // along a shaft of light

// How much of the logo is at a place, in points from its centre.
float cover(vec2 at, vec2 extent)
{
    vec2 uv = vec2(at.x, -at.y) / extent + 0.5;
    vec2 inside = step(abs(uv - 0.5), vec2(0.5));
    return texture(logo, uv).a * inside.x * inside.y;
}

void main()
{
    vec2 size = max(resolution, vec2(1.0));
    float scale = min(size.x / DESIGN.x, size.y / DESIGN.y);    // pixels in a point
    vec2 at = point * size * 0.5 / scale;                       // points from the centre
    float t = fract(time / PERIOD);                             // all rates below are whole numbers

    vec2 shape = vec2(textureSize(logo, 0));
    vec2 extent = LOGO * shape / max(shape.x, shape.y);

    // Two sheets of noise drift through each other; where both are bright there is light.
    vec2 field = at / 520.0;
    vec4 slow = texture(noise, field * 0.55 + fract(t * vec2(29.0, -17.0)));
    vec2 bent = field + 0.10 * (slow.xy - 0.5);
    vec4 fine = texture(noise, bent * 1.3 + fract(t * vec2(-61.0, 37.0)));
    float lit = slow.x * fine.x;
    float hue = 0.1 + 1.1 * slow.x + 0.25 * wave(t * 151.0 + at.x / 900.0);
    light = vec4(tint(hue) * lit * cover(at, extent), 0.0);
}
