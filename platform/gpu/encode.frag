#version 440

// Encodes the linear drawable for an 8-bit sRGB screen: lays the premultiplied light over the
// ground, clips to what the screen can show, applies the transfer function of IEC 61966-2-1, and
// adds a fixed pattern of less than half a step, so that slow gradients do not band. What a shader
// has changed gets no pattern: it is to look like the widgets that the same shader changes.

layout(location = 0) out vec4 encoded;

layout(std140, binding = 0) uniform Encoding {
    vec4 toScreenRed; // rows of the matrix from the drawable's primaries to sRGB's
    vec4 toScreenGreen;
    vec4 toScreenBlue;
    vec4 groundLinear;
    vec4 groundEncoded;
    float patternSize;   // in 8-bit steps
    float flippedHeight; // the drawable's height where its rows run the other way, else 0
};
layout(binding = 1) uniform sampler2D drawable;

// Interleaved gradient noise (J. Jimenez, 2014): even in every small neighbourhood.
float pattern(vec2 pixel) {
    return fract(52.9829189 * fract(dot(pixel, vec2(0.06711056, 0.00583715)))) - 0.5;
}

void main() {
    ivec2 pixel = ivec2(gl_FragCoord.xy);
    if (flippedHeight > 0.0) {
        pixel.y = int(flippedHeight) - 1 - pixel.y;
    }
    // The largest half: an infinite component must not turn the others into nonsense.
    vec4 light = clamp(texelFetch(drawable, pixel, 0), vec4(-65504.0), vec4(65504.0));
    if (light == vec4(0.0)) {
        encoded = groundEncoded; // exactly, so that no edge shows
        return;
    }
    vec3 linear = vec3(dot(toScreenRed.rgb, light.rgb), dot(toScreenGreen.rgb, light.rgb),
                       dot(toScreenBlue.rgb, light.rgb));
    linear += (1.0 - clamp(light.a, 0.0, 1.0)) * groundLinear.rgb;
    linear = clamp(linear, 0.0, 1.0);
    vec3 curve = 1.055 * pow(max(linear, vec3(1e-6)), vec3(1.0 / 2.4)) - 0.055;
    vec3 code = mix(curve, linear * 12.92, lessThanEqual(linear, vec3(0.0031308)));
    encoded = vec4(code + pattern(gl_FragCoord.xy) * (patternSize / 255.0), 1.0);
}
