#version 440
#extension GL_GOOGLE_include_directive : require
#include "../../platform/gpu/shader.glsl"

// Each component of the result is one argument, a row of the matrix, times the light. Because the
// light is premultiplied, the fourth column adds a colour that fades with the coverage.

vec4 shade(vec4 light) {
    return vec4(dot(arguments[0], light), dot(arguments[1], light), dot(arguments[2], light),
                dot(arguments[3], light));
}
