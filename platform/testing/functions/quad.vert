#version 440

layout(location = 0) in vec2 position;
layout(location = 0) out vec2 point;

void main()
{
    point = position;
    gl_Position = vec4(position, 0.0, 1.0);
}
