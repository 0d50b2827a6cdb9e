#version 440
#extension GL_GOOGLE_include_directive : require
#include "../../platform/gpu/shader.glsl"
#include "outside.glsl"

// Puts red in the place of every colour that Display P3 cannot show, and leaves the others alone.

const vec3 RED = vec3(1.0, 0.074214, 0.144128);

vec4 shade(vec4 light) {
    // Linear sRGB to linear Display P3 (SMPTE EG 432-1, D65).
    vec3 p3 = vec3(dot(vec3(0.8224620, 0.1775380, 0.0), light.rgb),
                   dot(vec3(0.0331942, 0.9668058, 0.0), light.rgb),
                   dot(vec3(0.0170826, 0.0723974, 0.9105199), light.rgb));
    return isOutside(p3, light.a) ? marked(light, RED) : light;
}
