#pragma once

#include "plugin/dsp/controls.hpp"
#include "plugin/dsp/filter_bank.hpp"
#include "plugin/dsp/oscillator.hpp"
#include "plugin/dsp/output_stage.hpp"

namespace larkvox {

/// A channel vocoder: splits a voice into bands, and gives their loudness to the same bands of a
/// carrier, which comes from outside or from its own oscillator. Adds no latency.
///
/// Making one takes memory; nothing else does, nor a lock or a system call. One thread at a time.
/// The same sound in gives the same sound out, however it is cut into blocks.
class Vocoder {
  public:
    /// Hz, from 8 kHz to 384 kHz.
    explicit Vocoder(double sampleRate);

    /// By address; takes effect at the next control step, smoothly where it can be heard.
    void set(std::size_t address, float value) { controls_.set(address, value); }
    void set(VocoderParameter parameter, float value) { controls_.set(parameter, value); }

    /// Forgets all sound; the next sample is the first, with all parameters where they are set.
    void reset();

    /// Takes a voice and, unless it is null, a carrier; what is no sound (NaN, infinity) is taken
    /// for silence. Each of the outputs may be the same block as an input.
    void process(const float* voice, const float* carrier, float* left, float* right,
                 std::size_t samples);

  private:
    static constexpr std::size_t voiceCount = laneCount;
    using PerBand = FilterBank::PerBand;
    using Block = std::array<float, FilterBank::maximumRun>;

    void begin();
    void step();
    void chooseBands();
    void takeControls();
    void followVoice();
    void moveFormants(bool moved);
    void tuneVoices(bool moved);
    void setGains();
    [[nodiscard]] OutputStage::Wanted wantedOutput() const;
    void makeCarrier(const float* external, float* carrier, std::size_t samples);
    void run(const float* voice, const float* carrier, float* left, float* right,
             std::size_t samples);

    const double sampleRate_;
    const std::size_t stepLength_; ///< samples
    Controls controls_;
    FilterBank bank_;
    Oscillator oscillator_;
    OutputStage output_;
    NoiseSource noise_{1};
    NoiseSource chance_{7};

    std::size_t position_ = 0; ///< in the control step
    std::uint64_t steps_ = 0;
    bool isFresh_ = true;
    int bands_ = 0;      ///< of `bandChoices`
    float bandFade_ = 1; ///< towards 0 while their number changes

    alignas(32) PerBand envelopes_{};
    alignas(32) PerBand setGains_{}; ///< of each band, as the parameters have it
    float attack_ = 1, release_ = 1; ///< what is reached in a step
    float loudness_ = 0;             ///< of the voice
    float unvoiced_ = 0;             ///< 0…1
    bool isSpeaking_ = false;

    double motionTurns_ = 0;
    float motion_ = 0;
    float shift_ = 0; ///< octaves, as the filters have it
    float pitch_ = 0; ///< octaves above 1 Hz
    std::array<float, voiceCount> wander_{};
    std::array<float, voiceCount> wanderAim_{};

    Ramp externalGain_, oscillatorGain_, noiseGain_;
};

} // namespace larkvox
