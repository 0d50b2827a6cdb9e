#version 440
#extension GL_GOOGLE_include_directive : require
#include "family.glsl"

// One voice at night: three ribbons of twelve fine strands each, one behind the other, glowing
// over the ground of the window. Along the picture lie the bands of a spectrum; energy swells in
// one, passes on to its neighbours and reaches the ribbons behind a little later. It lifts the
// strands, brightens them and turns them from purple over blue to aqua. The picture follows from
// three inputs only: its size in pixels (the shape stays the same, only finer), the seed (which
// arrangement) and the time in seconds (every motion repeats after PERIOD, where the clock is
// folded without a jump). The result is light to add to the ground: linear, above 1.0 in
// the cores, alpha 0, and nothing at all along the four edges.

layout(location = 0) in vec2 point;
layout(location = 0) out vec4 light;

layout(std140, binding = 0) uniform Uniforms {
    vec2 resolution;
    uint seed;
    float time;
};

const vec2 DESIGN = vec2(400.0, 300.0);             // the picture in points
const vec2 NAME = vec2(78.0, 9.0);                  // core of the calm place behind the name

const int PAIRS = 6;                                // the strands of a ribbon, two by two
const float LAST = float(2 * PAIRS - 1);
const float STEP = 0.155;                           // angle between two strands, radians
const float SPAN = 0.5 * LAST * STEP;

// Four numbers in 0..1 from each word of scrambled seed.
uint scramble(uint n)
{
    n = (n ^ (n >> 16u) ^ 0x5bd1u) * 0xa3c59b2du;
    n = (n ^ (n >> 15u)) * 0xc6d8e56bu;
    return n ^ (n >> 16u);
}

vec4 deal(uint n)
{
    return vec4((uvec4(n) >> uvec4(0u, 8u, 16u, 24u)) & 255u) / 256.0;
}

// The light of one ribbon at a height: x the sum, y the same weighted by the place across the
// ribbon (0..1). A strand at the angle a runs at curve.x + curve.y * cos(a) + curve.z * sin(a);
// slope holds the derivatives of the three. Equal steps of the angle make both a recurrence,
// so a strand costs a few multiplications however rich the three curves are.
vec2 ribbon(float height, vec3 curve, vec3 slope, float width, float sheen, float reach)
{
    const vec2 now = vec2(-SPAN, STEP - SPAN);
    const vec2 before = now - 2.0 * STEP;
    const float turn = 2.0 * cos(2.0 * STEP);
    vec2 y = curve.y * cos(now) + curve.z * sin(now);
    vec2 yBefore = curve.y * cos(before) + curve.z * sin(before);
    vec2 rise = slope.y * cos(now) + slope.z * sin(now);
    vec2 riseBefore = slope.y * cos(before) + slope.z * sin(before);
    vec2 place = vec2(0.0, 1.0 / LAST);
    vec2 sum = vec2(0.0);
    height -= curve.x;

    // A loop of no rounds is the only way to skip that software drivers take up.
    int count = abs(height - 0.5 * (1.0 + cos(SPAN)) * curve.y) < reach ? PAIRS : 0;
    for (int i = 0; i < count; ++i) {
        // The distance is taken across the strand, not down the column: steep parts stay as wide.
        vec2 away = height - y;
        vec2 tilt = slope.x + rise;
        vec2 core = width * width * (1.0 + tilt * tilt);
        vec2 glow = core / (core + away * away);

        // A sheen travels along the strands, each a little after the one before.
        vec2 run = 2.0 * fract(sheen + 0.5 * place) - 1.0;
        run *= run;
        glow *= glow * (0.3 + 1.9 * run * run) * vec2(1.0, 0.5);
        sum += vec2(glow.x + glow.y, dot(glow, place));

        place += 2.0 / LAST;
        vec2 next = turn * y - yBefore;
        yBefore = y;
        y = next;
        next = turn * rise - riseBefore;
        riseBefore = rise;
        rise = next;
    }
    return sum;
}

void main()
{
    vec2 size = max(resolution, vec2(1.0));
    float scale = min(size.x / DESIGN.x, size.y / DESIGN.y);    // pixels in a point
    vec2 at = point * size * 0.5 / scale;                       // points from the centre
    float x = point.x;
    float t = fract(time / PERIOD);                             // all rates below are whole numbers

    uint word = scramble(seed);
    vec4 a = deal(word);
    vec4 b = deal(scramble(word + 0x9e3779b9u));

    // From here a vec3 holds one value each for the near, the middle and the far ribbon.
    const vec3 lag = vec3(0.0, 0.5, 1.0);

    // The energy moves on from band to band with a rest at each; the ends of the voice are quiet.
    float quiet = 1.0 - x * x;
    quiet *= 1.35 - 0.35 * quiet;
    float hop = 353.0 * t + 0.03 * wave(1059.0 * t);
    vec3 swell = 0.5 + 0.5 * wave(0.58 * x + a.x - hop + 0.21 * lag);
    vec3 energy = 0.2 + 0.8 * swell * (0.66 + 0.34 * wave(1.35 * x + a.y + 209.0 * t - 0.17 * lag));
    vec3 bands = 0.5 + 0.5 * wave(2.6 * x + a.z + 0.05 * wave(481.0 * t + lag) + 0.13 * lag);
    vec3 lift = quiet * (22.0 + vec3(66.0, 76.0, 86.0) * energy * (1.55 - 0.55 * energy) * (0.82 + 0.18 * bands));

    // What the strands share (centre, bend) and what spreads them (spread; they meet where it is 0).
    vec3 phase = (vec3(0.74, 0.60, 0.46) + 0.16 * (b.x - 0.5)) * x + vec3(a.w, b.y, b.z);
    vec3 ripple = wave(vec3(1.75, 1.45, 1.15) * x + vec3(b.w, a.x, a.y) + t * vec3(247.0, 193.0, 137.0));
    vec3 centre = quiet * vec3(6.0, 9.0, 12.0) * wave(0.4 * x + a.y + t * vec3(177.0, 135.0, 103.0) + lag);
    vec3 bend = lift * (0.66 * wave(phase - t * vec3(161.0, 119.0, 89.0)) + 0.11 * ripple * bands);
    vec3 spread = lift * (0.86 * wave(1.17 * phase + a.z + 0.23 - t * vec3(105.0, 143.0, 65.0)) + 0.10 * ripple);
    vec3 centreRise = dFdx(centre) * scale;
    vec3 bendRise = dFdx(bend) * scale;
    vec3 spreadRise = dFdx(spread) * scale;

    // Strands never get finer than the pixels can carry; a wider one is paler, the light the same.
    const vec3 fine = vec3(0.80, 1.00, 2.10);
    vec3 width = max(fine, vec3(0.85 / scale));
    vec3 extent = 0.5 * (1.0 - cos(SPAN)) * abs(bend) + sin(SPAN) * abs(spread);
    vec3 reach = extent + width * (10.0 + 5.0 * (abs(centreRise) + abs(bendRise) + abs(spreadRise)));
    vec3 sheen = vec3(0.9, 0.7, 0.5) * x + vec3(a.z, a.w, a.x) - t * vec3(321.0, 249.0, 185.0);

    vec2 near = ribbon(at.y, vec3(centre.x, bend.x, spread.x), vec3(centreRise.x, bendRise.x, spreadRise.x), width.x, sheen.x, reach.x);
    vec2 middle = ribbon(at.y, vec3(centre.y, bend.y, spread.y), vec3(centreRise.y, bendRise.y, spreadRise.y), width.y, sheen.y, reach.y);
    vec2 far = ribbon(at.y, vec3(centre.z, bend.z, spread.z), vec3(centreRise.z, bendRise.z, spreadRise.z), width.z, sheen.z, reach.z);

    // 1 behind the name, falling off softly all around it.
    vec2 beyond = max(abs(at) - NAME, 0.0) / 28.0;
    float calm = dot(beyond, beyond);
    calm = 1.0 / (1.0 + calm * calm);

    vec3 hue = vec3(0.30, -0.10, 0.0) + vec3(0.45, 0.40, 0.25) * energy * (0.6 + 0.4 * bands)
             + 0.25 * wave(0.45 * x + b.w - 113.0 * t) - 0.28 * calm;
    vec3 gain = fine / width * vec3(1.45, 0.92, 0.38) * (0.25 + 1.2 * energy) * (0.7 + 0.6 * bands);
    vec3 sum = tint(hue.x + 0.40 * near.y / (near.x + 1e-4)) * (near.x * gain.x)
             + tint(hue.y + 0.55 * middle.y / (middle.x + 1e-4)) * (middle.x * gain.y)
             + tint(hue.z + 0.20 * far.y / (far.x + 1e-4)) * (far.x * gain.z);

    // The wide glow around a whole ribbon, in one stroke instead of strand by strand.
    vec3 off = at.y - centre - 0.45 * bend;
    vec3 halo = vec3(26.0, 34.0, 46.0) + 0.36 * lift;
    halo *= halo;
    halo /= halo + off * off;
    halo *= halo * swell * quiet * vec3(0.036, 0.054, 0.070);
    sum += tint(hue.x + 0.10) * halo.x + tint(hue.y + 0.15) * halo.y + tint(hue.z) * halo.z;

    // Where strands crowd together the core turns white. Behind the name only what is bright is
    // held back, as a limiter does, so that white letters stay readable and faint strands remain.
    float level = dot(sum, LUMINANCE);
    sum += vec3(0.30, 0.26, 0.34) * (level * level);
    sum /= 1.0 + calm * level * (1.0 + 0.3 * level) / 0.072;

    light = vec4(sum * shore(point, size, scale * vec2(60.0, 50.0)), 0.0);
}
