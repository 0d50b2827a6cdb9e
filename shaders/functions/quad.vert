#version 440

// Covers the picture with one quad and hands on where in it a fragment lies: -1 to +1 on both
// axes, with +1 at the right and at the top of the finished picture.

layout(location = 0) in vec2 position;
layout(location = 0) out vec2 point;

void main()
{
    point = position;
    gl_Position = vec4(position, 0.0, 1.0);
}
