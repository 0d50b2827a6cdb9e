#version 440
#extension GL_GOOGLE_include_directive : require
#include "../../gpu/shader.glsl"

// Red and blue change places; the first argument is added.

vec4 shade(vec4 light)
{
    return light.bgra + arguments[0];
}
