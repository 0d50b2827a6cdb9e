#version 440

// Two rows of eight cells, the first row at the top, each in the light that the uniforms say.

layout(location = 0) in vec2 point;
layout(location = 0) out vec4 light;

layout(std140, binding = 0) uniform Uniforms {
    vec4 cells[16];
};

void main()
{
    int column = clamp(int(floor((point.x * 0.5 + 0.5) * 8.0)), 0, 7);
    light = cells[column + (point.y > 0.0 ? 0 : 8)];
}
