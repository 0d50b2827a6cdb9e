// What a `platform::Shader` is made of: a fragment function includes this file and defines
//
//     vec4 shade(vec4 light)
//
// which gets the light of one pixel and gives that in its place: linear, premultiplied, with the
// primaries of sRGB, not clipped. The arguments that the program has not given are 0.

layout(location = 0) out vec4 shaded;

layout(std140, binding = 0) uniform Shading {
    vec4 toSRGBRed; // rows of the matrix from the drawable's primaries to sRGB's
    vec4 toSRGBGreen;
    vec4 toSRGBBlue;
    vec4 arguments[4];
};
layout(binding = 1) uniform sampler2D picture;

vec4 shade(vec4 light);

void main() {
    vec4 light = texelFetch(picture, ivec2(gl_FragCoord.xy), 0);
    shaded = shade(vec4(dot(toSRGBRed.rgb, light.rgb), dot(toSRGBGreen.rgb, light.rgb),
                        dot(toSRGBBlue.rgb, light.rgb), light.a));
}
