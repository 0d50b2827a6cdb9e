#include "gallery/fernhorn/vocoder/vocoder_settings.hpp"

#include <algorithm>

namespace gallery {

namespace {

using fernhorn::AudioParameter;
using fernhorn::ValueIncrement;
using fernhorn::ValueRange;
using platform::AUParameterAddress;
using Unit = platform::AudioUnitParameterUnit;
using Which = VocoderParameter;
using Strings = std::vector<std::string>;

struct Description {
    Which which;
    const char* identifier;
    const char* name;
    Unit unit;
    ValueRange range;
    float defaultValue;
    ValueIncrement increment = ValueIncrement::linear();
    Strings names = {};
};

Description toggle(Which which, const char* identifier, const char* name, float value = 0) {
    return {which, identifier, name, Unit::boolean, {0, 1}, value};
}

Description choice(Which which, const char* identifier, const char* name, Strings names,
                   float value = 0) {
    const auto last = static_cast<float>(names.size() - 1);
    return {which,
            identifier,
            name,
            Unit::indexed,
            {0, last},
            value,
            ValueIncrement::linear(),
            std::move(names)};
}

Description percent(Which which, const char* identifier, const char* name, float value) {
    return {which, identifier, name, Unit::percent, {0, 100}, value};
}

std::vector<Description> descriptions() {
    const auto around = [](float midpoint) { return ValueIncrement::logarithmic(midpoint); };
    return {
        choice(Which::page, "page", "Page", {"Voice", "Carrier", "Motion"}),
        {Which::formant, "formant", "Formant", Unit::absoluteCents, {-1200, 1200}, 300},
        {Which::cutoff, "cutoff", "Cutoff", Unit::hertz, {40, 18000}, 1200, around(1000)},
        {Which::drive, "drive", "Drive", Unit::decibels, {-12, 24}, 4},
        percent(Which::blend, "blend", "Blend", 64),
        {Which::attack, "attack", "Attack", Unit::milliseconds, {1, 500}, 8, around(40)},
        choice(Which::bands, "bands", "Bands", {"8", "12", "16", "20", "24", "32", "40"}, 4),
        {Which::release, "release", "Release", Unit::milliseconds, {10, 4000}, 240, around(300)},
        {Which::tilt, "tilt", "Tilt", Unit::decibels, {-12, 12}, 1.5F},
        choice(Which::mode, "mode", "Mode", {"Vocode", "Robot", "Choir", "Whisper"}),
        choice(Which::direction, "direction", "Direction", {"Forward", "Reverse"}),
        toggle(Which::sibilance, "sibilance", "Sibilance", 1),
        toggle(Which::limiter, "limiter", "Limiter"),
        toggle(Which::bypass, "bypass", "Bypass"),
        toggle(Which::solo, "solo", "Solo", 1),
        choice(Which::source, "source", "Source", {"Saw", "Pulse", "Noise"}, 1),
        choice(Which::tone, "tone", "Tone", {"Tape", "Tube"}),
        toggle(Which::freeze, "freeze", "Freeze"),
        {Which::pitch, "pitch", "Pitch", Unit::absoluteCents, {-2400, 2400}, 0},
        {Which::detune, "detune", "Detune", Unit::cents, {0, 50}, 12},
        percent(Which::width, "width", "Width", 72),
        {Which::noise, "noise", "Noise", Unit::decibels, {-60, 0}, -18},
        choice(Which::unison, "unison", "Unison", {"1", "2", "3", "4", "6", "8"}, 3),
        choice(Which::octave, "octave", "Octave", {"16", "8", "4"}, 1),
        {Which::glide, "glide", "Glide", Unit::milliseconds, {1, 2000}, 60, around(120)},
        percent(Which::velocity, "velocity", "Velocity", 40),
        percent(Which::drift, "drift", "Drift", 15),
        {Which::rate, "rate", "Rate", Unit::hertz, {0.05F, 20}, 1.5F, around(1.5F)},
        percent(Which::depth, "depth", "Depth", 35),
        {Which::phase, "phase", "Phase", Unit::degrees, {-180, 180}, 0},
        choice(Which::shape, "shape", "Shape", {"Sine", "Ramp", "Square", "Chance"}),
        percent(Which::swing, "swing", "Swing", 50),
        toggle(Which::sync, "sync", "Sync", 1),
        toggle(Which::follow, "follow", "Follow"),
        {Which::smooth, "smooth", "Smooth", Unit::milliseconds, {1, 1000}, 80, around(60)},
    };
}

} // namespace

float bandGain(float tilt, std::size_t band) {
    // Two formants of a voice, on which the tilt lies.
    static constexpr std::array<float, bandCount> shape{-3, 0, 4, 6, 2, -2, -1, 3, 5, 1, -3, -6};
    constexpr float middle = (bandCount - 1) / 2.0F;
    const float slope = (static_cast<float>(band) - middle) / middle;
    return std::clamp(shape.at(band) + tilt * slope, -12.0F, 12.0F);
}

void VocoderUnit::setParameter(AUParameterAddress address, float value) {
    if (address < values_.size()) {
        values_[address].store(value, std::memory_order_relaxed);
    }
}

float VocoderUnit::processedValue(AUParameterAddress address) const {
    return address < values_.size() ? values_[address].load(std::memory_order_relaxed) : 0;
}

std::shared_ptr<VocoderSettings> VocoderSettings::make(core::MainQueue& queue) {
    const std::shared_ptr<VocoderSettings> settings(new VocoderSettings);
    settings->unit_ = std::make_shared<VocoderUnit>();
    settings->all_.resize(vocoderParameterCount);
    std::vector<AUParameterAddress> allBands;
    for (std::size_t band = 0; band < bandCount; ++band) {
        allBands.push_back(addressOfBand(band));
    }
    float tilt = 0;
    for (auto& [which, identifier, name, unit, range, value, increment, names] : descriptions()) {
        const auto strings = names.empty() ? std::optional<Strings>() : std::move(names);
        const auto dependents = which == Which::tilt ? std::optional(allBands) : std::nullopt;
        tilt = which == Which::tilt ? value : tilt;
        settings->all_[static_cast<std::size_t>(which)] =
            std::make_shared<AudioParameter>(addressOf(which), identifier, name, unit, range, value,
                                             increment, strings, dependents, queue);
    }
    for (std::size_t band = 0; band < bandCount; ++band) {
        const auto number = std::to_string(band + 1);
        settings->all_[addressOfBand(band)] = std::make_shared<AudioParameter>(
            addressOfBand(band), "band" + number, "Band " + number, Unit::decibels,
            ValueRange{-12, 12}, bandGain(tilt, band), ValueIncrement::linear(), std::nullopt,
            std::nullopt, queue);
    }
    settings->setupParameters(settings->all_);
    settings->configureAudioUnit(settings->unit_);
    settings->setupParameterTreeListeners();
    return settings;
}

void VocoderSettings::updateDependentValues(AUParameterAddress address, float value) {
    if (address != addressOf(Which::tilt)) {
        return;
    }
    for (std::size_t index = 0; index < bandCount; ++index) {
        band(index)->auParameter()->setValue(bandGain(value, index));
    }
}

} // namespace gallery
