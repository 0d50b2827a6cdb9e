// What the functions share that mark colours outside of a range. A colour counts as outside when a
// component leaves 0 … 1 by more than what a 16-bit float may have rounded off. Light without
// coverage is taken as it is. As `color_functions.cpp` on the processor.

const float ROUNDING = 0.001;

bool isOutside(vec3 color, float coverage) {
    float whole = coverage > 0.0 ? coverage : 1.0;
    float slack = ROUNDING * max(max(abs(color.r), abs(color.g)), max(abs(color.b), 1e-6));
    float low = min(color.r, min(color.g, color.b));
    float high = max(color.r, max(color.g, color.b));
    return low < -slack || high > whole + slack;
}

vec4 marked(vec4 light, vec3 marker) {
    return vec4(marker * (light.a > 0.0 ? light.a : 1.0), light.a);
}
