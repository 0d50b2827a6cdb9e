#version 440
#extension GL_GOOGLE_include_directive : require
#include "family.glsl"

// Six lamps along a band of strands, one over each sixth of the width. At rest the band lies thin
// and purple with a faint lamp at each place. A switch that is on opens the band around its lamp
// into a lens of aqua light; while it is pressed the strands are drawn together and down under the
// finger. A switch turning on is an event: its lens springs open, the lamp flashes warm for half a
// second, and a pulse of light runs along the strands to both sides, lifting them as it passes,
// until it has aged away after some seconds. The picture follows from the six states, how far each
// is pressed, the last six events and their times, the size in pixels, the pixels in a point and the
// time in seconds. The result is light to add to the ground: linear, above 1.0 in the cores,
// alpha 0, and nothing at all along the four edges.

layout(location = 0) in vec2 point;
layout(location = 0) out vec4 light;

layout(std140, binding = 0) uniform Uniforms {
    vec2 resolution;
    float time;                 // seconds
    float scale;                // pixels in a point
    vec4 switchOnState[2];      // 1 on, 0 off
    vec4 switchDownState[2];    // 1 pressed, 0 let go
    vec4 switchHistory[2];      // the switches of the last events, the newest first, -1 none
    vec4 switchHistoryTime[2];  // when, in seconds
};

const int SWITCHES = 6;
const int STRANDS = 13;
const float STEP = 0.21;                        // angle between two strands, radians
const float SPAN = 0.5 * float(STRANDS - 1) * STEP;
const float LIFE = 5.0;                         // seconds that an event is seen
const float SPEED = 0.62;                       // of a pulse, half widths a second

float state(int i) { return clamp(switchOnState[i >> 2][i & 3], 0.0, 1.0); }
float press(int i) { return clamp(switchDownState[i >> 2][i & 3], 0.0, 1.0); }
float placeOf(float which) { return (2.0 * which + 1.0) / float(SWITCHES) - 1.0; }

// A soft bump of height 1 and about that width on both sides, nothing beyond twice of it.
float bump(float x, float width)
{
    float u = clamp(0.25 * x * x / (width * width), 0.0, 1.0);
    u = 1.0 - u;
    return u * u * u * u;
}

void main()
{
    vec2 size = max(resolution, vec2(1.0));
    float pixels = max(scale, 0.25);
    vec2 at = point * size * 0.5 / pixels;          // points from the centre
    float x = point.x;
    float halfWidth = size.x * 0.5 / pixels;
    float room = min(size.y * 0.5 / pixels, 150.0); // points above and below
    float t = fract(time / PERIOD);                 // all rates below are whole numbers
    float quiet = 1.0 - x * x * x * x;

    // Events: the springing of their lenses, the flash of their lamps, and the pulses.
    float spring[SWITCHES] = float[](1.0, 1.0, 1.0, 1.0, 1.0, 1.0);
    float flash[SWITCHES] = float[](0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    float lift = 0.0;
    float energy = 0.0;
    for (int i = SWITCHES - 1; i >= 0; --i) {       // newer ones last
        float which = switchHistory[i >> 2][i & 3];
        float age = time - switchHistoryTime[i >> 2][i & 3];
        if (which < 0.0 || age < 0.0 || age > LIFE) {
            continue;
        }
        int lamp = clamp(int(which), 0, SWITCHES - 1);
        float decay = exp2(-1.3 * age) * (1.0 - age / LIFE);
        spring[lamp] = 1.0 - exp2(-7.0 * age) * cos(11.0 * age);
        flash[lamp] = max(flash[lamp], exp2(-6.0 * age));
        float from = x - placeOf(which);
        float away = sqrt(from * from + 0.002) - SPEED * age;     // round at its source, no cusp
        float envelope = bump(away, 0.12 + 0.03 * age) * decay;
        lift += envelope * (1.0 - exp2(-9.0 * age)) * wave(5.5 * away - 0.25);
        energy += envelope;
    }

    // What each switch does to the strands.
    float open = 0.0;
    float held = 0.0;
    for (int i = 0; i < SWITCHES; ++i) {
        float away = x - placeOf(float(i));
        open += bump(away, 0.13) * state(i) * spring[i] * (1.0 - 0.75 * press(i));
        held += bump(away, 0.09) * press(i);
    }

    // The band: a strand at the angle a runs at centre + bend * cos(a) + spread * sin(a).
    float centre = room * (0.05 * wave(0.35 * x + 97.0 * t) + 0.30 * lift * quiet - 0.16 * held);
    float bend = room * quiet * (0.05 * wave(0.6 * x - 173.0 * t + 0.3) + 0.10 * lift);
    float spread = room * quiet * (0.045 + 0.025 * wave(0.9 * x + 211.0 * t) + 0.40 * open + 0.10 * energy) * (1.0 - 0.6 * min(held, 1.0));
    vec3 rise = dFdx(vec3(centre, bend, spread)) * pixels;

    float width = max(0.85, 0.85 / pixels);
    float height = at.y - centre;
    float y = bend * cos(-SPAN) + spread * sin(-SPAN);
    float yBefore = bend * cos(-SPAN - STEP) + spread * sin(-SPAN - STEP);
    float slope = rise.y * cos(-SPAN) + rise.z * sin(-SPAN);
    float slopeBefore = rise.y * cos(-SPAN - STEP) + rise.z * sin(-SPAN - STEP);
    const float turn = 2.0 * cos(STEP);
    vec2 sum = vec2(0.0);
    for (int i = 0; i < STRANDS; ++i) {
        float away = height - y;
        float tilt = rise.x + slope;
        float core = width * width * (1.0 + tilt * tilt);
        float shine = core / (core + away * away);
        float place = float(i) / float(STRANDS - 1);
        float run = 2.0 * fract(0.8 * x + 0.5 * place - 257.0 * t) - 1.0;
        run *= run;
        shine *= shine * (0.45 + 0.9 * run * run);
        sum += vec2(shine, shine * place);
        float next = turn * y - yBefore;
        yBefore = y;
        y = next;
        next = turn * slope - slopeBefore;
        slopeBefore = slope;
        slope = next;
    }
    float across = sum.y / (sum.x + 1e-4);
    float hue = 0.05 + 0.75 * open + 0.35 * energy + 0.30 * across + 0.12 * wave(0.5 * x - 131.0 * t);
    vec3 picture = tint(hue) * sum.x * (0.32 + 1.05 * open + 1.6 * energy + 0.9 * held);

    // The band's own light, the lamps that ride on it, and the warmth of a fresh one.
    float body = 4.0 + abs(spread);
    float halo = body * body / (body * body + height * height);
    picture += tint(hue) * halo * halo * (0.012 + 0.10 * open + 0.16 * energy + 0.05 * held);
    for (int i = 0; i < SWITCHES; ++i) {
        float away = halfWidth * (x - placeOf(float(i)));
        float lamp = 1.0 / (1.0 + (away * away + height * height) / 30.0);
        picture += (AQUA + 0.25) * (lamp * lamp * (0.06 + 0.6 * state(i) + 0.5 * press(i)))
                 + (ORANGE + 0.15) * (lamp * 0.8 * flash[i]);
    }

    float level = dot(picture, LUMINANCE);
    picture += vec3(0.30, 0.26, 0.34) * min(level * level, 4.0);
    light = vec4(picture * shore(point, size, pixels * vec2(70.0, 40.0)), 0.0);
}
