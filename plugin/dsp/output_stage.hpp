#pragma once

#include "plugin/dsp/lanes.hpp"

#include <cstddef>

namespace larkvox {

/// A value that moves evenly from one control step to the next.
struct Ramp {
    float value = 0;
    float step = 0; ///< per sample

    /// Moves on to `wanted` within so many samples; the one before has come to its end.
    void to(float wanted, std::size_t samples) {
        value = end_;
        step = (wanted - end_) / static_cast<float>(samples);
        end_ = wanted;
    }
    /// Stays where it has come to.
    void hold() {
        value = end_;
        step = 0;
    }
    /// Stands at `wanted` at once.
    void jump(float wanted) {
        value = end_ = wanted;
        step = 0;
    }
    [[nodiscard]] float at(std::size_t position) const {
        return value + step * static_cast<float>(position);
    }
    [[nodiscard]] Lanes eightFrom(std::size_t position) const {
        const auto first = static_cast<float>(position);
        return value + step * (first + Lanes{0, 1, 2, 3, 4, 5, 6, 7});
    }
    [[nodiscard]] bool isZero() const { return value == 0 && step == 0; }

  private:
    float end_ = 0;
};

/// What is behind the bands: saturation, a low-pass filter, the blend with the voice, a limiter.
/// Never allocates; one thread at a time.
class OutputStage {
  public:
    /// Where everything is to stand at the next control step.
    struct Wanted {
        float drive = 1;       ///< gain into the saturation
        float tube = 0;        ///< share of the tube's character, 0…1
        float cutoff = 18000;  ///< Hz
        float cutoffShare = 0; ///< how much of the low-pass filter is heard, 0…1
        float dry = 0;         ///< gains of the voice, the bands and the carrier
        float wet = 1;
        float carrier = 0;
        float limiter = 0; ///< share of the limiter, 0…1
    };

    explicit OutputStage(double sampleRate);

    /// Everything moves to `wanted` within so many samples.
    void rampTo(const Wanted& wanted, std::size_t samples);
    /// In its place when nothing is to move.
    void hold();
    void jumpTo(const Wanted& wanted);

    /// Takes the bands from `left` and `right` and puts there what is heard; of the right ones
    /// nothing unless `isStereo`. All four have room for a multiple of eight samples. `position`
    /// counts from the last control step.
    void process(const float* voice, const float* carrier, float* left, float* right,
                 std::size_t samples, std::size_t position, bool isStereo);

    void reset();

  private:
    struct Filter {
        float first = 0;
        float second = 0;
    };
    void setCutoff(float frequency);
    /// What each of the two channels keeps.
    struct Channel {
        Filter filter;
        float before = 0, blocked = 0; ///< of the tube
    };
    void saturate(float* sound, Channel& channel, std::size_t samples, std::size_t position) const;
    void filter(float* sound, Filter& state, std::size_t samples, std::size_t position) const;
    void limit(float* left, float* right, std::size_t samples, std::size_t position);

    double sampleRate_;
    float blocking_; ///< of the mean
    float recovery_; ///< of the limiter
    float a1_ = 0, a2_ = 0, a3_ = 0;
    float cutoff_ = 0;
    Ramp drive_, makeUp_, tube_, cutoffShare_, dry_, wet_, carrier_, limiter_;
    Channel left_, right_;
    float peak_ = 0;
};

} // namespace larkvox
