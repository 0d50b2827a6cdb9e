#pragma once

#include "plugin/parameters/vocoder_parameters.hpp"

namespace larkvox {

// Waves as values of -1…1 over a phase in turns: what the screens of the window draw, and what
// moves the formants. Values, for any thread.

/// Some voices of a carrier, tuned apart. `width` is 0…1, `detune` in cents, `voices` at least 1.
/// What comes from outside is drawn as silence.
struct Carrier {
    Source wave;
    double width;
    double detune;
    int voices;

    [[nodiscard]] double at(double turns) const;
};

/// A slow wave. `depth` is 0…1, `offset` in turns; `swing` is the share of every other turn, 0…1.
struct Motion {
    MotionShape shape;
    double depth;
    double offset;
    double swing;

    [[nodiscard]] double at(double turns) const;
};

} // namespace larkvox
