#pragma once

#include "plugin/parameters/vocoder_parameters.hpp"

#include <array>

namespace larkvox {

/// The parameters as the signal processing takes them: within their ranges, in its own units, and
/// moving smoothly to what was set last. Never allocates; one thread at a time.
class Controls {
  public:
    /// What moves smoothly, each in the unit that is even to the ear.
    enum Smooth : std::uint8_t {
        formant, ///< octaves
        cutoff,  ///< octaves above 1 Hz
        cutoffShare,
        drive, ///< dB
        blend, ///< shares of 0…1 from here
        reverse,
        sibilance,
        limiter,
        bypass,
        solo,
        tube,
        saw,
        pulse,
        noiseSource,
        external,
        robot,
        choir,
        whisper,
        detune, ///< octaves
        width,
        noise, ///< gain
        velocity,
        drift,
        depth,
        phase, ///< turns
        swing,
        follow,
        tilt,                               ///< dB
        firstBand,                          ///< dB
        firstVoice = firstBand + bandCount, ///< loudness
        smoothCount = firstVoice + 8,
    };

    explicit Controls(double stepsPerSecond);

    /// What is not a number becomes the default, and what is out of range the nearest bound.
    void set(VocoderParameter parameter, float value) { set(indexOf(parameter), value); }
    void set(std::size_t address, float value);

    /// Everything stands where it was set.
    void jump();
    /// One step on. False: nothing has moved since the last step.
    bool step();

    [[nodiscard]] float operator[](std::size_t smooth) const { return now_[smooth]; }

    // As set last, since they have no loudness of their own.
    [[nodiscard]] float value(VocoderParameter parameter) const { return set_[indexOf(parameter)]; }
    [[nodiscard]] int choice(VocoderParameter parameter) const {
        return static_cast<int>(value(parameter));
    }
    [[nodiscard]] bool isOn(VocoderParameter parameter) const { return value(parameter) >= 0.5F; }

    /// How far something with such a time constant goes in one step, 0…1.
    [[nodiscard]] float reach(float milliseconds) const;

  private:
    void aim();

    std::array<float, vocoderParameterCount> set_{};
    std::array<float, smoothCount> now_{};
    std::array<float, smoothCount> aim_{};
    double stepsPerSecond_;
    float reach_;
    bool isSettled_ = false;
};

} // namespace larkvox
