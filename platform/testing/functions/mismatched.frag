#version 440

// Wants another input than the vertex function of these tests gives.

layout(location = 0) in mat2 point;
layout(location = 0) out vec4 light;

layout(std140, binding = 0) uniform Uniforms {
    vec4 cells[16];
};

void main()
{
    light = point[0].xyxy * point[1].xyxy * cells[0];
}
