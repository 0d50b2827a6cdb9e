#include "plugin/dsp/vocoder.hpp"

#include "plugin/dsp/denormals.hpp"
#include "plugin/dsp/waves.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace larkvox {

namespace {

using Which = VocoderParameter;

constexpr float oscillatorLevel = 0.35F;
constexpr float noiseLevel = 0.5F;
constexpr float makeUp = 0.7F;        // of the product of two sounds, each below 1
constexpr float faintest = 1e-5F;     // of a band's envelope; below, it is silent
constexpr float emphasisMiddle = 700; // Hz
constexpr float unvoicedAbove = 2600; // Hz
constexpr float fadeSteps = 10;       // while the number of bands changes
constexpr float speaking = 0.012F;    // loudness at which a word begins
constexpr float silent = 0.004F;      // and ends
constexpr float usualLoudness = 0.1F; // of a voice
constexpr float wanderRate = 3;       // new aims per second

/// So many samples that a control step is half a millisecond or a little more.
std::size_t stepFor(double sampleRate) {
    return sampleRate < 32000 ? 16 : sampleRate < 64000 ? 32 : 64;
}

float gainOf(float decibels) {
    return std::exp2(decibels * 0.166096405F);
}

} // namespace

Vocoder::Vocoder(double sampleRate)
    : sampleRate_(std::clamp(sampleRate, 8000.0, 384000.0)),
      stepLength_(stepFor(sampleRate_)),
      controls_(sampleRate_ / static_cast<double>(stepLength_)),
      output_(sampleRate_) {
    reset();
}

void Vocoder::reset() {
    isFresh_ = true;
    position_ = 0;
    steps_ = 0;
    noise_ = NoiseSource(1);
    chance_ = NoiseSource(7);
    bandFade_ = 1;
    envelopes_ = {};
    loudness_ = unvoiced_ = 0;
    isSpeaking_ = false;
    motionTurns_ = 0;
    motion_ = shift_ = 0;
    wander_ = wanderAim_ = {};
    oscillator_.reset();
    output_.reset();
}

void Vocoder::begin() {
    isFresh_ = false;
    controls_.jump();
    bands_ = controls_.choice(Which::bands);
    bank_.setBands(static_cast<std::size_t>(bandChoices.at(static_cast<std::size_t>(bands_))),
                   sampleRate_);
    pitch_ = 0;
    takeControls();
    moveFormants(true);
    tuneVoices(true);
    output_.jumpTo(wantedOutput());
    for (Ramp* const ramp : {&externalGain_, &oscillatorGain_, &noiseGain_}) {
        ramp->jump(0);
    }
}

void Vocoder::chooseBands() {
    if (controls_.choice(Which::bands) == bands_) {
        bandFade_ = std::min(1.0F, bandFade_ + 1 / fadeSteps);
        return;
    }
    bandFade_ = bandFade_ - 1 / fadeSteps;
    if (bandFade_ <= 0) {
        bandFade_ = 0;
        bands_ = controls_.choice(Which::bands);
        bank_.setBands(static_cast<std::size_t>(bandChoices.at(static_cast<std::size_t>(bands_))),
                       sampleRate_);
        envelopes_ = {};
        bank_.shiftCarrier(std::exp2(shift_));
        takeControls();
    }
}

/// What changes with the parameters alone.
void Vocoder::takeControls() {
    attack_ = controls_.reach(controls_.value(Which::attack));
    release_ = controls_.reach(controls_.value(Which::release));
    const std::size_t count = bank_.bandCount();
    // The spectrum of a saw falls with the frequency and that of noise rises, from band to band;
    // both are made level. What comes from outside is left as it is.
    const float noisy = std::max(controls_[Controls::noiseSource], controls_[Controls::whisper]);
    const float tonal = controls_[Controls::saw] + controls_[Controls::pulse];
    const float emphasis = 0.5F * (tonal * (1 - noisy) - noisy);
    const float own = 1 - controls_[Controls::external] * (1 - noisy);
    // Few bands share less of the sound than their number says.
    const auto many = static_cast<float>(count);
    const float level = makeUp * (1 + own * 1.6F) * (1 - 0.5F * controls_[Controls::pulse]) *
                        std::sqrt(many) * std::min(1.0F, std::pow(many / 14, 1.2F));
    std::size_t knob = 0;
    for (std::size_t band = 0; band < count; ++band) {
        const float frequency = bank_.frequencies()[band];
        while (knob + 2 < bandCount && frequency > bandFrequencies[knob + 1]) {
            ++knob;
        }
        const float low = bandFrequencies[knob];
        const float place = std::clamp(
            std::log2(frequency / low) / std::log2(bandFrequencies[knob + 1] / low), 0.0F, 1.0F);
        const float here = controls_[Controls::firstBand + knob];
        const float next = controls_[Controls::firstBand + knob + 1];
        constexpr float middle = 995; // Hz, between the outer knobs
        const float slope = std::clamp(std::log2(frequency / middle) / 3.466F, -1.0F, 1.0F);
        const float decibels = here + place * (next - here) + slope * controls_[Controls::tilt];
        setGains_[band] =
            level * gainOf(decibels) * std::exp2(emphasis * std::log2(frequency / emphasisMiddle));
    }
    std::fill(setGains_.begin() + static_cast<std::ptrdiff_t>(count), setGains_.end(), 0.0F);

    // Voices stand apart, and those of a choir wherever there is room; the low bands stay.
    const float voices = 1 / (controls_[Controls::firstVoice] * controls_[Controls::firstVoice]);
    const float apart = tonal * 0.6F * std::clamp((voices - 1) / 7, 0.0F, 1.0F);
    const float spread = apart + controls_[Controls::choir] * (0.85F - apart);
    PerBand positions{};
    if (spread > 0) {
        for (std::size_t band = 0; band < count; ++band) {
            const float high = std::clamp((bank_.frequencies()[band] - 150) / 300, 0.0F, 1.0F);
            positions[band] = (band % 2 == 0 ? -spread : spread) * high;
        }
    }
    bank_.setPositions(positions);
}

void Vocoder::followVoice() {
    alignas(32) PerBand powers{};
    bank_.takePowers(powers, stepLength_);
    const std::size_t count = bank_.bandCount();
    float all = 0;
    float high = 0;
    for (std::size_t band = 0; band < count; ++band) {
        all += powers[band];
        high += bank_.frequencies()[band] > unvoicedAbove ? powers[band] : 0;
    }
    const float level = std::sqrt(all);
    loudness_ += (level > loudness_ ? attack_ : release_) * (level - loudness_);
    if (!controls_.isOn(Which::freeze)) {
        for (std::size_t band = 0; band < powers.size(); ++band) {
            const float now = std::sqrt(powers[band]);
            const float before = envelopes_[band];
            const float next = before + (now > before ? attack_ : release_) * (now - before);
            envelopes_[band] = next > faintest ? next : 0;
        }
    }
    const float hiss = all > 1e-9F ? std::clamp((high / all - 0.3F) / 0.4F, 0.0F, 1.0F) : 0;
    unvoiced_ += attack_ * (hiss - unvoiced_);
    const bool begins = !isSpeaking_ && loudness_ > speaking;
    isSpeaking_ = begins || (isSpeaking_ && loudness_ > silent);
    if (begins && controls_.isOn(Which::sync)) {
        motionTurns_ = 0;
    }
}

void Vocoder::moveFormants(bool moved) {
    const float depth = controls_[Controls::depth];
    float shift = controls_[Controls::formant];
    if (depth > 0) {
        const double seconds = static_cast<double>(stepLength_) / sampleRate_;
        motionTurns_ += seconds * static_cast<double>(controls_.value(Which::rate));
        motionTurns_ -= motionTurns_ > 4096 ? 4096 : 0;
        const float followed = std::min(1.0F, loudness_ / usualLoudness);
        const Motion wave{.shape = static_cast<MotionShape>(controls_.choice(Which::shape)),
                          .depth = 1,
                          .offset = static_cast<double>(controls_[Controls::phase]),
                          .swing = static_cast<double>(controls_[Controls::swing])};
        const auto value = static_cast<float>(wave.at(motionTurns_));
        motion_ += controls_.reach(controls_.value(Which::smooth)) * (value - motion_);
        shift += depth * motion_ * (1 + controls_[Controls::follow] * (followed - 1));
    }
    if (moved || shift != shift_) {
        shift_ = shift;
        bank_.shiftCarrier(std::exp2(shift));
    }
}

void Vocoder::tuneVoices(bool moved) {
    const float feet = static_cast<float>(controls_.choice(Which::octave));
    constexpr float lowestA = 5.78135971F; // 55 Hz in octaves above 1 Hz
    const float wanted = lowestA + feet + controls_.value(Which::pitch) / 1200;
    const float rest = wanted - pitch_;
    const bool glides = rest != 0;
    const bool isThere = pitch_ == 0 || std::abs(rest) < 1e-4F;
    pitch_ = isThere ? wanted : pitch_ + controls_.reach(controls_.value(Which::glide)) * rest;

    const float choir = controls_[Controls::choir];
    const float steady = 1 - controls_[Controls::robot];
    const float range = (controls_[Controls::drift] * 30 + choir * 14) * steady / 1200; // octaves
    if (range > 0) {
        const auto every = static_cast<std::uint64_t>(
            sampleRate_ / static_cast<double>(stepLength_) / static_cast<double>(wanderRate));
        const float reach = controls_.reach(250);
        for (std::size_t voice = 0; voice < voiceCount; ++voice) {
            if ((steps_ + voice * every / voiceCount) % every == 0) {
                wanderAim_[voice] = chance_.next();
            }
            wander_[voice] += reach * (wanderAim_[voice] - wander_[voice]);
        }
    }
    if (!moved && !glides && range <= 0) {
        return;
    }
    const auto voices = static_cast<float>(
        unisonChoices.at(static_cast<std::size_t>(controls_.choice(Which::unison))));
    Lanes turns{};
    Lanes loudness{};
    for (std::size_t voice = 0; voice < voiceCount; ++voice) {
        const float place = voices > 1 ? 2 * static_cast<float>(voice) / (voices - 1) - 1 : 0;
        const float octaves =
            pitch_ + steady * place * controls_[Controls::detune] + range * wander_[voice];
        turns[voice] = static_cast<float>(static_cast<double>(std::exp2(octaves)) / sampleRate_);
        loudness[voice] = oscillatorLevel * controls_[Controls::firstVoice + voice];
    }
    oscillator_.setVoices(turns, loudness);
    oscillator_.setShape({.saw = controls_[Controls::saw],
                          .pulse = controls_[Controls::pulse],
                          .width = controls_[Controls::width]});
}

void Vocoder::setGains() {
    const std::size_t count = bank_.bandCount();
    const float velocity = controls_[Controls::velocity];
    float level = bandFade_;
    if (velocity < 1 && loudness_ > faintest) {
        const float octaves = (velocity - 1) * std::log2(loudness_ / usualLoudness);
        level *= std::exp2(std::min(octaves, 4.0F));
    }
    const float reverse = controls_[Controls::reverse];
    const float robot = controls_[Controls::robot];
    const float strongest = *std::max_element(envelopes_.begin(), envelopes_.end());
    PerBand gains{};
    for (std::size_t band = 0; band < count; ++band) {
        const float here = envelopes_[band];
        float envelope = here + reverse * (envelopes_[count - 1 - band] - here);
        if (robot > 0) {
            const float rest = std::clamp(envelope / (0.12F * strongest + 1e-9F) - 1, 0.0F, 1.0F);
            envelope *= 1 + robot * (rest - 1);
        }
        gains[band] = level * setGains_[band] * envelope;
    }
    bank_.rampGains(gains, stepLength_);
}

OutputStage::Wanted Vocoder::wantedOutput() const {
    const float heard = 1 - controls_[Controls::bypass];
    const float mixed = heard * (1 - controls_[Controls::solo]);
    return {.drive = gainOf(controls_[Controls::drive]),
            .tube = controls_[Controls::tube],
            .cutoff = std::exp2(controls_[Controls::cutoff]),
            .cutoffShare = controls_[Controls::cutoffShare],
            .dry = (1 - heard) + mixed * (1 - controls_[Controls::blend]),
            .wet = mixed * controls_[Controls::blend],
            .carrier = heard * controls_[Controls::solo],
            .limiter = heard * controls_[Controls::limiter]};
}

void Vocoder::step() {
    const bool moved = controls_.step();
    if (moved) {
        takeControls();
    }
    followVoice();
    chooseBands();
    moveFormants(moved);
    tuneVoices(moved);
    setGains();
    if (moved) {
        output_.rampTo(wantedOutput(), stepLength_);
    } else {
        output_.hold();
    }
    const float whisper = controls_[Controls::whisper];
    const float sibilance = controls_[Controls::sibilance];
    const float hiss = 1 + sibilance * (unvoiced_ - 1);
    const float steadyNoise = std::max(controls_[Controls::noiseSource], whisper);
    externalGain_.to((1 - whisper) * controls_[Controls::external], stepLength_);
    oscillatorGain_.to((1 - whisper) *
                           std::min(1.0F, controls_[Controls::saw] + controls_[Controls::pulse]),
                       stepLength_);
    noiseGain_.to(noiseLevel * std::max(steadyNoise, controls_[Controls::noise] * hiss),
                  stepLength_);
    ++steps_;
}

void Vocoder::makeCarrier(const float* external, float* carrier, std::size_t samples) {
    if (!oscillatorGain_.isZero()) {
        oscillator_.render(carrier, samples);
    } else {
        std::fill_n(carrier, samples, 0.0F);
    }
    const bool hasNoise = !noiseGain_.isZero();
    for (std::size_t i = 0; i < samples; ++i) {
        float value = externalGain_.at(position_ + i) * external[i] +
                      oscillatorGain_.at(position_ + i) * carrier[i];
        if (hasNoise) {
            value += noiseGain_.at(position_ + i) * noise_.next();
        }
        carrier[i] = value;
    }
}

void Vocoder::run(const float* voice, const float* carrier, float* left, float* right,
                  std::size_t samples) {
    alignas(32) Block voiceBlock;
    alignas(32) Block external;
    alignas(32) Block carrierBlock;
    alignas(32) Block leftBlock;
    alignas(32) Block rightBlock;
    // Zeros behind the last sample: what comes is computed in eights.
    const std::size_t eights = (samples + laneCount - 1) / laneCount * laneCount;
    for (Block* const block : {&voiceBlock, &external, &carrierBlock, &leftBlock, &rightBlock}) {
        std::fill_n(block->begin() + static_cast<std::ptrdiff_t>(eights - laneCount), laneCount,
                    0.0F);
    }
    const auto copy = [samples](const float* from, Block& to) {
        for (std::size_t i = 0; i < samples; ++i) {
            to[i] = std::abs(from[i]) < 1e6F ? from[i] : 0;
        }
    };
    copy(voice, voiceBlock);
    if (carrier != nullptr) {
        copy(carrier, external);
    } else {
        std::fill_n(external.begin(), samples, 0.0F);
    }
    makeCarrier(external.data(), carrierBlock.data(), samples);
    bank_.process(voiceBlock.data(), carrierBlock.data(), leftBlock.data(), rightBlock.data(),
                  samples);
    output_.process(voiceBlock.data(), carrierBlock.data(), leftBlock.data(), rightBlock.data(),
                    samples, position_, bank_.isStereo());
    std::memcpy(left, leftBlock.data(), samples * sizeof(float));
    std::memcpy(right, rightBlock.data(), samples * sizeof(float));
}

void Vocoder::process(const float* voice, const float* carrier, float* left, float* right,
                      std::size_t samples) {
    const FlushDenormals flush;
    if (isFresh_ && samples > 0) {
        begin();
    }
    while (samples > 0) {
        if (position_ == 0) {
            step();
        }
        const std::size_t count = std::min(samples, stepLength_ - position_);
        run(voice, carrier, left, right, count);
        position_ = (position_ + count) % stepLength_;
        samples -= count;
        voice += count;
        carrier = carrier != nullptr ? carrier + count : nullptr;
        left += count;
        right += count;
    }
}

} // namespace larkvox
