#version 440
#extension GL_GOOGLE_include_directive : require
#include "family.glsl"

layout(location = 0) in vec2 point;
layout(location = 0) out vec4 light;

layout(std140, binding = 0) uniform Uniforms {
    vec2 resolution;
    float time;
    float scale;
    vec4 switchOnState[2];
    vec4 switchDownState[2];
    vec4 switchHistory[2];
    vec4 switchHistoryTime[2];
};

void main()
{
    float sum = 0.0;
    for (int i = 0; i < 6; ++i) {
        sum += switchOnState[i >> 2][i & 3] + switchDownState[i >> 2][i & 3] + (time - switchHistoryTime[i >> 2][i & 3]) + switchHistory[i >> 2][i & 3];
    }
    light = vec4(tint(point.x + scale) * sum * shore(point, resolution, vec2(20.0)), 0.0);
}
