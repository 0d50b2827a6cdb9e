#pragma once

#include "fernhorn/model/parameter_settings.hpp"

#include <array>
#include <atomic>
#include <cstddef>

namespace gallery {

/// The parameters of the example, in the order of its tree. The band gains come last.
enum class VocoderParameter : std::uint8_t {
    page,
    // Voice
    formant,
    cutoff,
    drive,
    blend,
    attack,
    bands,
    release,
    tilt,
    mode,
    direction,
    sibilance,
    limiter,
    bypass,
    solo,
    source,
    tone,
    freeze,
    // Carrier
    pitch,
    detune,
    width,
    noise,
    unison,
    octave,
    glide,
    velocity,
    drift,
    // Motion
    rate,
    depth,
    phase,
    shape,
    swing,
    sync,
    follow,
    smooth,
    firstBand,
};

inline constexpr std::size_t bandCount = 12;
inline constexpr std::size_t vocoderParameterCount =
    static_cast<std::size_t>(VocoderParameter::firstBand) + bandCount;

[[nodiscard]] constexpr platform::AUParameterAddress addressOf(VocoderParameter parameter) {
    return static_cast<platform::AUParameterAddress>(parameter);
}
[[nodiscard]] constexpr platform::AUParameterAddress addressOfBand(std::size_t band) {
    return addressOf(VocoderParameter::firstBand) + band;
}

/// What the spectral tilt makes of a band's gain, in decibels.
[[nodiscard]] float bandGain(float tilt, std::size_t band);

/// Takes values and makes no sound. Any thread.
class VocoderUnit final : public fernhorn::FernAudioUnit {
  public:
    void setParameter(platform::AUParameterAddress address, float value) override;
    [[nodiscard]] float processedValue(platform::AUParameterAddress address) const;

  private:
    std::array<std::atomic<float>, vocoderParameterCount> values_{};
};

/// The parameters of a vocoder: the example that the dials and buttons of the gallery's plug-in
/// window are bound to. The tilt sets the gains of all bands, by way of the tree, so that the host
/// hears of each.
class VocoderSettings final : public fernhorn::ParameterSettings {
  public:
    /// Changes travel over `queue`, which has to outlive the settings.
    static std::shared_ptr<VocoderSettings> make(core::MainQueue& queue);

    [[nodiscard]] std::string pluginVersion() const override { return "1.1.0"; }
    void updateDependentValues(platform::AUParameterAddress address, float value) override;

    [[nodiscard]] const std::shared_ptr<fernhorn::AudioParameter>&
    parameter(VocoderParameter which) const {
        return all_[static_cast<std::size_t>(which)];
    }
    [[nodiscard]] const std::shared_ptr<fernhorn::AudioParameter>& band(std::size_t index) const {
        return all_[static_cast<std::size_t>(VocoderParameter::firstBand) + index];
    }
    [[nodiscard]] VocoderUnit& unit() const { return *unit_; }

  private:
    VocoderSettings() = default;

    std::shared_ptr<VocoderUnit> unit_;
    Parameters all_; ///< by address; never changes once made
};

} // namespace gallery
