#version 440

// Shows an sRGB image as it is, pixel for pixel.

layout(location = 0) in vec2 point;
layout(location = 0) out vec4 light;

layout(std140, binding = 0) uniform Uniforms {
    vec2 resolution;
};
layout(binding = 1) uniform sampler2D image;

void main()
{
    vec2 pixel = vec2(point.x * 0.5 + 0.5, 0.5 - point.y * 0.5) * resolution;
    vec3 code = texelFetch(image, ivec2(pixel), 0).rgb;
    vec3 curve = pow((code + 0.055) / 1.055, vec3(2.4));
    light = vec4(mix(curve, code / 12.92, lessThanEqual(code, vec3(0.04045))), 1.0);
}
