#pragma once

#include "fernhorn/model/value_mapping.hpp"
#include "platform/audio/au_types.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

// Constants, for any thread.
namespace larkvox {

/// The parameters of the vocoder. Their numbers are their addresses; the band gains come last.
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

/// The bands whose gains can be set, however many bands the sound is split into.
inline constexpr std::size_t bandCount = 12;
inline constexpr std::size_t vocoderParameterCount =
    static_cast<std::size_t>(VocoderParameter::firstBand) + bandCount;
inline constexpr std::array<float, bandCount> bandFrequencies{
    90, 150, 240, 380, 600, 900, 1400, 2000, 3000, 4500, 7000, 11000}; // Hz

[[nodiscard]] constexpr std::size_t indexOf(VocoderParameter parameter) {
    return static_cast<std::size_t>(parameter);
}

// What the indexed parameters name, in their order.
enum class Mode : std::uint8_t { vocode, robot, choir, whisper };
enum class Source : std::uint8_t { saw, pulse, noise, external };
enum class MotionShape : std::uint8_t { sine, ramp, square, chance };
inline constexpr std::array<int, 8> bandChoices{4, 8, 12, 16, 20, 24, 32, 40};
inline constexpr std::array<int, 6> unisonChoices{1, 2, 3, 4, 6, 8};

/// The pages of the window, and what hosts group parameters by.
enum class ParameterGroup : std::uint8_t { window, voice, carrier, motion, bands };

/// Everything that is to be known of a parameter: what the parameter tree, the signal processing
/// and the description for hosts are made of.
struct ParameterDescription {
    const char* identifier;
    const char* name;
    ParameterGroup group;
    platform::AudioUnitParameterUnit unit;
    fernhorn::ValueRange range;
    float defaultValue;
    fernhorn::ValueIncrement increment = fernhorn::ValueIncrement::linear();
    std::span<const char* const> names = {}; ///< of the values 0, 1, 2 …
    const char* comment = "";                ///< one sentence for hosts

    /// Belongs to the window alone: no host sees or automates it.
    [[nodiscard]] bool isOfWindow() const { return group == ParameterGroup::window; }
    /// Takes whole numbers only.
    [[nodiscard]] bool isStepped() const;
};

/// By address.
[[nodiscard]] const std::array<ParameterDescription, vocoderParameterCount>& vocoderParameters();

} // namespace larkvox
