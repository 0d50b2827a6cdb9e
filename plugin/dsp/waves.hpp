#pragma once

namespace gallery {

// What the screens of the plug-in draw: values of -1…1 over a phase in turns.

enum class CarrierWave { saw, pulse, noise };

/// Some voices of a carrier, tuned apart. `width` is 0…1, `detune` in cents, `voices` at least 1.
struct Carrier {
    CarrierWave wave;
    double width;
    double detune;
    int voices;

    [[nodiscard]] double at(double turns) const;
};

enum class MotionShape { sine, ramp, square, chance };

/// A slow wave. `depth` is 0…1, `offset` in turns; `swing` is the share of every other turn, 0…1.
struct Motion {
    MotionShape shape;
    double depth;
    double offset;
    double swing;

    [[nodiscard]] double at(double turns) const;
};

} // namespace gallery
