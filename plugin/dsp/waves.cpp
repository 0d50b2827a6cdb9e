#include "plugin/dsp/waves.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace larkvox {

namespace {

constexpr double fullTurn = 6.283185307179586;

double partOf(double turns) {
    return turns - std::floor(turns);
}

/// The same number always gives the same chance, -1…1.
double chance(std::int64_t number) {
    auto h = static_cast<std::uint32_t>(number) * 0x9e3779b1U;
    h = (h ^ (h >> 15U)) * 0x2c1b3c6dU;
    h = (h ^ (h >> 12U)) * 0x297a2d39U;
    h ^= h >> 15U;
    return h / 2147483647.5 - 1;
}

double voice(Source wave, double width, double turns) {
    const double part = partOf(turns);
    switch (wave) {
    case Source::saw: {
        // The width bends the saw towards a triangle.
        return (1 - width) * (2 * part - 1) + width * (1 - 4 * std::abs(part - 0.5));
    }
    case Source::pulse:
        return part < std::clamp(width, 0.05, 0.95) ? 1 : -1;
    case Source::noise:
        return chance(static_cast<std::int64_t>(std::floor(turns * 48)));
    case Source::external:
        break;
    }
    return 0;
}

} // namespace

double Carrier::at(double turns) const {
    double sum = 0;
    for (int i = 0; i < voices; ++i) {
        const double apart = voices > 1 ? 2.0 * i / (voices - 1) - 1 : 0;
        const double ratio = std::exp2(apart * detune / 1200);
        // Seen from where the voices are some turns into their drifting apart.
        sum += voice(wave, width, (turns + 3) * ratio);
    }
    return sum / voices;
}

double Motion::at(double turns) const {
    const double shifted = turns + offset;
    const double pair = std::floor(shifted / 2);
    const double within = shifted / 2 - pair;
    const double bend = std::clamp(swing, 0.05, 0.95);
    const double straight =
        2 * pair + (within < bend ? within / bend : 1 + (within - bend) / (1 - bend));
    const double part = partOf(straight);
    switch (shape) {
    case MotionShape::sine:
        return depth * std::sin(fullTurn * part);
    case MotionShape::ramp:
        return depth * (2 * part - 1);
    case MotionShape::square:
        return part < 0.5 ? depth : -depth;
    case MotionShape::chance:
        break;
    }
    return depth * chance(static_cast<std::int64_t>(std::floor(straight * 4)));
}

} // namespace larkvox
