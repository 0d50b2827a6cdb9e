#include "plugin/parameters/vocoder_parameters.hpp"

#include <string>

namespace larkvox {

namespace {

using fernhorn::ValueIncrement;
using Group = ParameterGroup;
using Unit = platform::AudioUnitParameterUnit;
using Names = std::span<const char* const>;

constexpr std::array pageNames{"Voice", "Carrier", "Motion"};
constexpr std::array bandNames{"4", "8", "12", "16", "20", "24", "32", "40"};
constexpr std::array modeNames{"Vocode", "Robot", "Choir", "Whisper"};
constexpr std::array directionNames{"Forward", "Reverse"};
constexpr std::array sourceNames{"Saw", "Pulse", "Noise", "Input"};
constexpr std::array toneNames{"Tape", "Tube"};
constexpr std::array unisonNames{"1", "2", "3", "4", "6", "8"};
constexpr std::array octaveNames{"16", "8", "4"};
constexpr std::array shapeNames{"Sine", "Ramp", "Square", "Chance"};
static_assert(bandNames.size() == bandChoices.size() && unisonNames.size() == unisonChoices.size());

ParameterDescription toggle(Group group, const char* identifier, const char* name, float value,
                            const char* comment) {
    return {.identifier = identifier,
            .name = name,
            .group = group,
            .unit = Unit::boolean,
            .range = {0, 1},
            .defaultValue = value,
            .comment = comment};
}

ParameterDescription choice(Group group, const char* identifier, const char* name, Names names,
                            float value, const char* comment) {
    return {.identifier = identifier,
            .name = name,
            .group = group,
            .unit = Unit::indexed,
            .range = {0, static_cast<float>(names.size() - 1)},
            .defaultValue = value,
            .names = names,
            .comment = comment};
}

ParameterDescription amount(Group group, const char* identifier, const char* name, Unit unit,
                            fernhorn::ValueRange range, float value, const char* comment) {
    return {.identifier = identifier,
            .name = name,
            .group = group,
            .unit = unit,
            .range = range,
            .defaultValue = value,
            .comment = comment};
}

ParameterDescription ratio(Group group, const char* identifier, const char* name, Unit unit,
                           fernhorn::ValueRange range, float midpoint, float value,
                           const char* comment) {
    auto description = amount(group, identifier, name, unit, range, value, comment);
    description.increment = ValueIncrement::logarithmic(midpoint);
    return description;
}

/// The gains of the bands: their texts are made once.
struct BandTexts {
    std::array<std::string, bandCount> identifiers;
    std::array<std::string, bandCount> names;
    std::array<std::string, bandCount> comments;

    BandTexts() {
        for (std::size_t band = 0; band < bandCount; ++band) {
            const auto number = std::to_string(band + 1);
            identifiers.at(band) = "band" + number;
            names.at(band) = "Band " + number;
            comments.at(band) = "Gain around " +
                                std::to_string(static_cast<int>(bandFrequencies.at(band))) + " Hz.";
        }
    }
};

std::array<ParameterDescription, vocoderParameterCount> describe() {
    constexpr auto voice = Group::voice;
    constexpr auto carrier = Group::carrier;
    constexpr auto motion = Group::motion;
    constexpr fernhorn::ValueRange full{0, 100};
    std::array<ParameterDescription, vocoderParameterCount> all{
        choice(Group::window, "page", "Page", pageNames, 0, "The page of the window."),

        amount(voice, "formant", "Formant", Unit::absoluteCents, {-1200, 1200}, 0,
               "Moves the voice's formants; the pitch stays."),
        ratio(voice, "cutoff", "Cutoff", Unit::hertz, {40, 18000}, 1000, 18000,
              "A low-pass filter behind the bands."),
        amount(voice, "drive", "Drive", Unit::decibels, {-12, 24}, 0,
               "How hard the bands drive the saturation."),
        amount(voice, "blend", "Blend", Unit::percent, full, 100,
               "From the voice as it is to the vocoder alone."),
        ratio(voice, "attack", "Attack", Unit::milliseconds, {1, 500}, 40, 1,
              "How fast the bands follow a voice that grows."),
        choice(voice, "bands", "Bands", bandNames, 4, "How many bands the voice is split into."),
        ratio(voice, "release", "Release", Unit::milliseconds, {5, 4000}, 300, 10,
              "How fast the bands follow a voice that fades."),
        amount(voice, "tilt", "Tilt", Unit::decibels, {-12, 12}, 0,
               "Raises the high bands and lowers the low ones, or the reverse."),
        choice(voice, "mode", "Mode", modeNames, 0,
               "Vocode: as set. Robot: one steady voice, the strongest bands only. Choir: voices "
               "that wander, across the stereo picture. Whisper: noise as the carrier."),
        choice(voice, "direction", "Direction", directionNames, 0,
               "Reverse: the low bands of the voice open the high ones of the carrier."),
        toggle(voice, "sibilance", "Sibilance", 1,
               "The carrier's noise follows the consonants; otherwise it sounds all the time."),
        toggle(voice, "limiter", "Limiter", 0, "Keeps peaks below full scale."),
        toggle(voice, "bypass", "Bypass", 0, "The voice as it came in."),
        toggle(voice, "solo", "Solo", 0, "The carrier alone, before the voice shapes it."),
        choice(voice, "source", "Source", sourceNames, 0,
               "The carrier: an oscillator, noise, or the carrier input."),
        choice(voice, "tone", "Tone", toneNames, 0, "The character of the saturation."),
        toggle(voice, "freeze", "Freeze", 0, "Holds the vowel of this moment."),

        amount(carrier, "pitch", "Pitch", Unit::absoluteCents, {-2400, 2400}, 0,
               "The oscillator's pitch around the octave's A."),
        amount(carrier, "detune", "Detune", Unit::cents, {0, 50}, 12,
               "How far the voices are tuned apart."),
        amount(carrier, "width", "Width", Unit::percent, full, 40,
               "Bends the saw to a triangle; the width of the pulse."),
        amount(carrier, "noise", "Noise", Unit::decibels, {-60, 0}, -18,
               "The noise in the carrier; none at the lower end."),
        choice(carrier, "unison", "Unison", unisonNames, 0,
               "How many voices the oscillator has; several stand apart in the stereo picture."),
        choice(carrier, "octave", "Octave", octaveNames, 1,
               "The oscillator's octave, in feet: A at 55, 110 or 220 Hz."),
        ratio(carrier, "glide", "Glide", Unit::milliseconds, {1, 2000}, 120, 60,
              "How long the pitch takes to a new note."),
        amount(carrier, "velocity", "Velocity", Unit::percent, full, 100,
               "How much of the voice's dynamics remains; at 0 all words are equally loud."),
        amount(carrier, "drift", "Drift", Unit::percent, full, 0,
               "How far the oscillator's pitch wanders by itself."),

        ratio(motion, "rate", "Rate", Unit::hertz, {0.05F, 20}, 1.5F, 1.5F,
              "The speed of the wave that moves the formants."),
        amount(motion, "depth", "Depth", Unit::percent, full, 0,
               "How far the wave moves the formants; at most an octave up and down."),
        amount(motion, "phase", "Phase", Unit::degrees, {-180, 180}, 0, "Where the wave begins."),
        choice(motion, "shape", "Shape", shapeNames, 0, "The shape of the wave."),
        amount(motion, "swing", "Swing", Unit::percent, full, 50,
               "The share of every other turn of the wave."),
        toggle(motion, "sync", "Sync", 0, "Every word begins the wave anew."),
        toggle(motion, "follow", "Follow", 0, "The louder the voice, the deeper the wave."),
        ratio(motion, "smooth", "Smooth", Unit::milliseconds, {1, 1000}, 60, 20,
              "Rounds the wave's corners."),
    };
    static const BandTexts texts;
    for (std::size_t band = 0; band < bandCount; ++band) {
        all.at(indexOf(VocoderParameter::firstBand) + band) =
            amount(Group::bands, texts.identifiers.at(band).c_str(), texts.names.at(band).c_str(),
                   Unit::decibels, {-12, 12}, 0, texts.comments.at(band).c_str());
    }
    return all;
}

} // namespace

bool ParameterDescription::isStepped() const {
    return unit == Unit::indexed || unit == Unit::boolean;
}

const std::array<ParameterDescription, vocoderParameterCount>& vocoderParameters() {
    static const auto all = describe();
    return all;
}

} // namespace larkvox
