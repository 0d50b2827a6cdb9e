#pragma once

#include "plugin/dsp/lanes.hpp"

#include <cstdint>

namespace larkvox {

/// White noise from a seed: the same every time.
class NoiseSource {
  public:
    explicit NoiseSource(std::uint32_t seed) : state_(seed) {}
    /// -1…1.
    float next() {
        state_ = state_ * 1664525U + 1013904223U;
        return static_cast<float>(static_cast<std::int32_t>(state_)) * 0x1p-31F;
    }

  private:
    std::uint32_t state_;
};

/// Up to eight voices of one waveform, without audible aliasing. Never allocates; one thread at a
/// time.
class Oscillator {
  public:
    /// What is heard of each waveform, 0…1, and how it is bent.
    struct Shape {
        float saw = 1;
        float pulse = 0;
        float width = 0; ///< 0…1: of the pulse, and from saw to triangle
    };

    /// The turns per sample of each voice, and its loudness. Voices of loudness 0 are not heard.
    void setVoices(const Lanes& turnsPerSample, const Lanes& loudness);
    void setShape(const Shape& shape) { shape_ = shape; }

    /// Adds up the voices. As many samples.
    void render(float* samples, std::size_t count) { render_(*this, samples, count); }

    /// The voices begin apart, always the same way.
    void reset();

  private:
    struct Kernel;
    using Render = void (*)(Oscillator&, float*, std::size_t);
    static Render fastestRender();

    Lanes phase_{};
    Lanes step_{};
    Lanes edge_{}; ///< samples per turn
    Lanes loudness_{};
    Shape shape_;
    Render render_ = fastestRender();
};

} // namespace larkvox
