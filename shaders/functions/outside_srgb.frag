#version 440
#extension GL_GOOGLE_include_directive : require
#include "../../platform/gpu/shader.glsl"
#include "outside.glsl"

// Puts orange in the place of every colour that sRGB cannot show, and leaves the others alone.

const vec3 ORANGE = vec3(1.0, 0.323143, 0.068478);

vec4 shade(vec4 light) {
    return isOutside(light.rgb, light.a) ? marked(light, ORANGE) : light;
}
