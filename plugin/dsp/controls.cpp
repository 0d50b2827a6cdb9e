#include "plugin/dsp/controls.hpp"

#include <algorithm>
#include <cmath>

namespace larkvox {

namespace {

using Which = VocoderParameter;

constexpr float smoothing = 12; // ms

float share(bool isOn) {
    return isOn ? 1.0F : 0.0F;
}

} // namespace

Controls::Controls(double stepsPerSecond)
    : stepsPerSecond_(stepsPerSecond), reach_(reach(smoothing)) {
    for (std::size_t address = 0; address < set_.size(); ++address) {
        set(address, vocoderParameters()[address].defaultValue);
    }
    jump();
}

float Controls::reach(float milliseconds) const {
    return static_cast<float>(
        1 - std::exp(-1000 / (static_cast<double>(milliseconds) * stepsPerSecond_)));
}

void Controls::set(std::size_t address, float value) {
    if (address >= set_.size() || value == set_[address]) {
        return;
    }
    const auto& description = vocoderParameters()[address];
    float taken = std::isnan(value)
                      ? description.defaultValue
                      : std::clamp(value, description.range.lower, description.range.upper);
    if (description.isStepped()) {
        taken = std::round(taken);
    }
    if (taken != set_[address]) {
        set_[address] = taken;
        aim();
        isSettled_ = false;
    }
}

void Controls::aim() {
    const auto source = static_cast<Source>(choice(Which::source));
    const auto mode = static_cast<Mode>(choice(Which::mode));
    const float cutoffHertz = value(Which::cutoff);
    const float noiseLevel = value(Which::noise);
    aim_[formant] = value(Which::formant) / 1200;
    aim_[cutoff] = std::log2(cutoffHertz);
    aim_[cutoffShare] = share(cutoffHertz < 17999);
    aim_[drive] = value(Which::drive);
    aim_[blend] = value(Which::blend) / 100;
    aim_[reverse] = share(isOn(Which::direction));
    aim_[sibilance] = share(isOn(Which::sibilance));
    aim_[limiter] = share(isOn(Which::limiter));
    aim_[bypass] = share(isOn(Which::bypass));
    aim_[solo] = share(isOn(Which::solo));
    aim_[tube] = share(isOn(Which::tone));
    aim_[saw] = share(source == Source::saw);
    aim_[pulse] = share(source == Source::pulse);
    aim_[noiseSource] = share(source == Source::noise);
    aim_[external] = share(source == Source::external);
    aim_[robot] = share(mode == Mode::robot);
    aim_[choir] = share(mode == Mode::choir);
    aim_[whisper] = share(mode == Mode::whisper);
    aim_[detune] = value(Which::detune) / 1200;
    aim_[width] = value(Which::width) / 100;
    aim_[noise] = noiseLevel > -60 ? std::pow(10.0F, noiseLevel / 20) : 0;
    aim_[velocity] = value(Which::velocity) / 100;
    aim_[drift] = value(Which::drift) / 100;
    aim_[depth] = value(Which::depth) / 100;
    aim_[phase] = value(Which::phase) / 360;
    aim_[swing] = value(Which::swing) / 100;
    aim_[follow] = share(isOn(Which::follow));
    aim_[tilt] = value(Which::tilt);
    for (std::size_t band = 0; band < bandCount; ++band) {
        aim_[firstBand + band] = set_[indexOf(Which::firstBand) + band];
    }
    const int voices =
        mode == Mode::robot ? 1 : unisonChoices.at(static_cast<std::size_t>(choice(Which::unison)));
    for (int voice = 0; voice < 8; ++voice) {
        aim_[static_cast<std::size_t>(firstVoice + voice)] =
            voice < voices ? 1 / std::sqrt(static_cast<float>(voices)) : 0;
    }
}

void Controls::jump() {
    aim();
    now_ = aim_;
    isSettled_ = true;
}

bool Controls::step() {
    if (isSettled_) {
        return false;
    }
    bool isThere = true;
    for (std::size_t i = 0; i < now_.size(); ++i) {
        const float rest = aim_[i] - now_[i];
        const bool isNear = std::abs(rest) < 1e-4F;
        now_[i] = isNear ? aim_[i] : now_[i] + reach_ * rest;
        isThere = isThere && isNear;
    }
    isSettled_ = isThere;
    return true;
}

} // namespace larkvox
