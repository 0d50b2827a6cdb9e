#pragma once

#include "fernhorn/model/parameter_settings.hpp"
#include "plugin/parameters/vocoder_parameters.hpp"

#include <array>
#include <atomic>

namespace larkvox {

[[nodiscard]] constexpr platform::AUParameterAddress addressOf(VocoderParameter parameter) {
    return static_cast<platform::AUParameterAddress>(parameter);
}
[[nodiscard]] constexpr platform::AUParameterAddress addressOfBand(std::size_t band) {
    return addressOf(VocoderParameter::firstBand) + band;
}

/// Takes values and makes no sound: where the window runs, the sound is made elsewhere. Any thread.
class VocoderUnit final : public fernhorn::FernAudioUnit {
  public:
    void setParameter(platform::AUParameterAddress address, float value) override;
    [[nodiscard]] float processedValue(platform::AUParameterAddress address) const;

  private:
    std::array<std::atomic<float>, vocoderParameterCount> values_{};
};

/// The vocoder's parameters as its window is bound to them.
class VocoderSettings final : public fernhorn::ParameterSettings {
  public:
    /// Changes travel over `queue`, which has to outlive the settings.
    static std::shared_ptr<VocoderSettings> make(core::MainQueue& queue);

    [[nodiscard]] std::string pluginVersion() const override;

    [[nodiscard]] const std::shared_ptr<fernhorn::AudioParameter>&
    parameter(VocoderParameter which) const {
        return all_[indexOf(which)];
    }
    [[nodiscard]] const std::shared_ptr<fernhorn::AudioParameter>& band(std::size_t index) const {
        return all_[indexOf(VocoderParameter::firstBand) + index];
    }
    [[nodiscard]] VocoderUnit& unit() const { return *unit_; }

  private:
    VocoderSettings() = default;

    std::shared_ptr<VocoderUnit> unit_;
    Parameters all_; ///< by address; never changes once made
};

} // namespace larkvox
