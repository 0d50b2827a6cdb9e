// What the visuals have in common: their light, their clock and their edges.

const float PERIOD = 4096.0;    // seconds; the clock is folded there, so all motion repeats then

const vec3 LUMINANCE = vec3(0.2126, 0.7152, 0.0722);
const vec3 PURPLE = vec3(0.323, 0.107, 1.000);      // linear light; purple and aqua lead
const vec3 BLUE = vec3(0.090, 0.260, 1.000);
const vec3 AQUA = vec3(0.045, 0.590, 0.640);
const vec3 ORANGE = vec3(1.000, 0.323, 0.068);      // rare

// A sine of whole turns, from two parabolas: a fraction of the cost of sin() in software.
vec3 wave(vec3 turns)
{
    vec3 t = fract(turns) - 0.5;
    vec3 arc = t * (16.0 * abs(t) - 8.0);
    return arc * (0.775 + 0.225 * abs(arc));
}

float wave(float turns)
{
    return wave(vec3(turns)).x;
}

// 0 purple, 1 aqua, blue between them.
vec3 tint(float hue)
{
    hue = clamp(hue, 0.0, 1.0);
    float rest = 1.0 - hue;
    return PURPLE * (rest * rest) + BLUE * (2.0 * rest * hue) + AQUA * (hue * hue);
}

// From 1 in the open to 0 at the edges, over a width in pixels; black from the centre of the
// outermost pixels on.
float shore(vec2 point, vec2 size, vec2 width)
{
    vec2 room = clamp(((1.0 - abs(point)) * size * 0.5 - 0.75) / width, 0.0, 1.0);
    room *= room * (3.0 - 2.0 * room);
    return room.x * room.y;
}
