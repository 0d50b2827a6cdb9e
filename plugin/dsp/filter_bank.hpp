#pragma once

#include "plugin/dsp/lanes.hpp"

#include <array>
#include <span>

namespace larkvox {

/// Two banks of band-pass filters: one splits the voice into bands and measures them, one shapes
/// the carrier, each band with a gain. All bands are computed side by side. Never allocates; one
/// thread at a time.
class FilterBank {
  public:
    static constexpr std::size_t maximumBands = 40;
    static constexpr std::size_t groups = maximumBands / laneCount;
    static constexpr std::size_t maximumRun = 64; ///< samples
    /// Filters in a row, each of the second order.
    static constexpr std::size_t voiceStages = 2;
    static constexpr std::size_t carrierStages = 3;
    using PerBand = std::array<float, groups * laneCount>;

    /// Sets the bands, as wide as the ear's are alike, and silences all of them.
    void setBands(std::size_t count, double sampleRate);
    [[nodiscard]] std::size_t bandCount() const { return count_; }
    /// Whether left and right differ.
    [[nodiscard]] bool isStereo() const { return isStereo_; }
    /// In the middle of the band, Hz.
    [[nodiscard]] const PerBand& frequencies() const { return frequencies_; }

    /// Moves the carrier's bands against the voice's; those beyond what the sample rate can carry
    /// fall silent.
    void shiftCarrier(float ratio);

    /// Where each band stands, -1 (left) to 1.
    void setPositions(const PerBand& positions);

    /// The gains reach these values after that many samples.
    void rampGains(const PerBand& gains, std::size_t samples);

    /// The mean power of each band since the last call; `samples` is how many there were.
    void takePowers(PerBand& powers, std::size_t samples);

    /// Filters as many samples, `maximumRun` at most. Gives no right ones unless `isStereo`.
    void process(const float* voice, const float* carrier, float* left, float* right,
                 std::size_t samples) {
        process_(*this, voice, carrier, left, right, samples);
    }

  private:
    using PerGroup = std::array<Lanes, groups>;
    /// Trapezoidal integrators, which stay in tune and stable while their frequency moves.
    struct Filter {
        Lanes a1, a2, twoG;
        Lanes damping;       ///< also what makes the filter's own gain 1
        Lanes detune;        ///< where it stands around the band's middle
        Lanes first, second; ///< the integrators' states
    };
    struct Group {
        std::array<Filter, voiceStages> voice;
        std::array<Filter, carrierStages> carrier;
        Lanes warped; ///< the middle, in half turns per sample
        Lanes gain, gainStep, left, right, power;
        Lanes voiceLevel, carrierLevel; ///< make the gain of all filters 1 in the band's middle
        Lanes audible;                  ///< 1, or 0 for a band beyond the range
    };
    struct Kernel;
    using Process = void (*)(FilterBank&, const float*, const float*, float*, float*, std::size_t);
    static Process fastestProcess();
    static void tune(std::span<Filter> filters, const Lanes& turns);
    static float shape(std::span<Filter> filters, std::size_t lane, double width);

    std::array<Group, groups> groups_{};
    bool isStereo_ = false;
    std::size_t count_ = 0;
    std::size_t groupCount_ = 0;
    PerBand frequencies_{};
    Process process_ = fastestProcess();
};

} // namespace larkvox
