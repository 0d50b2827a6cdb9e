#version 440

// A test picture of colours, many of them outside of what sRGB and Display P3 can show: the hues
// from left to right, from grey at the bottom to a strong colour at the top, all of one lightness
// and a little brighter to the eye in the middle. It needs the size alone and stands still.

layout(location = 0) in vec2 point;
layout(location = 0) out vec4 light;

layout(std140, binding = 0) uniform Uniforms {
    vec2 resolution;
    uint seed;
    float time;
};

const float TURN = 6.2831853;
const float STRONGEST = 0.32;   // chroma; Display P3 ends between 0.14 and 0.32

// Oklab (B. Ottosson, 2020) to linear sRGB, not clipped.
vec3 fromOklab(vec3 lab)
{
    vec3 lms = vec3(dot(lab, vec3(1.0, 0.3963377774, 0.2158037573)),
                    dot(lab, vec3(1.0, -0.1055613458, -0.0638541728)),
                    dot(lab, vec3(1.0, -0.0894841775, -1.2914855480)));
    lms *= lms * lms;
    return vec3(dot(lms, vec3(4.0767416621, -3.3077115913, 0.2309699292)),
                dot(lms, vec3(-1.2684380046, 2.6097574011, -0.3413193965)),
                dot(lms, vec3(-0.0041960863, -0.7034186147, 1.7076147010)));
}

void main()
{
    vec2 place = point * 0.5 + 0.5;
    float angle = TURN * place.x;
    float chroma = STRONGEST * place.y;
    light = vec4(fromOklab(vec3(0.72, chroma * cos(angle), chroma * sin(angle))), 1.0);
}
