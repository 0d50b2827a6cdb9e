#include "plugin/dsp/output_stage.hpp"

#include "plugin/dsp/filter_bank.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

namespace larkvox {

namespace {

constexpr float ceiling = 0.98F; // of the limiter
/// A drive of 0 dB leaves usual sound clean: it reaches a quarter of where the bend ends its rise.
constexpr float headroom = 0.25F;

float makeUpFor(float drive) {
    return std::pow(drive, -0.6F) / headroom;
}

constexpr std::size_t laneBytes = sizeof(Lanes);

LARKVOX_INLINE Lanes load(const float* from) {
    Lanes value;
    std::memcpy(&value, from, laneBytes);
    return value;
}
LARKVOX_INLINE void store(float* to, Lanes value) {
    std::memcpy(to, &value, laneBytes);
}

/// Straight in the middle, ±1 at ±3 and beyond.
LARKVOX_INLINE Lanes bend(Lanes x) {
    const Lanes bounded = minimum(maximum(x, lanes(-3)), lanes(3));
    const Lanes square = bounded * bounded;
    return bounded * (27 + square) / (27 + 9 * square);
}

} // namespace

OutputStage::OutputStage(double sampleRate)
    : sampleRate_(sampleRate),
      blocking_(static_cast<float>(std::exp(-2 * std::numbers::pi * 10 / sampleRate))),
      recovery_(static_cast<float>(std::exp(-1 / (0.08 * sampleRate)))) {
    reset();
}

void OutputStage::reset() {
    left_ = right_ = {};
    peak_ = 0;
}

void OutputStage::setCutoff(float frequency) {
    const double bounded = std::min(static_cast<double>(frequency), 0.45 * sampleRate_);
    const double g = std::tan(std::numbers::pi * bounded / sampleRate_);
    const double a1 = 1 / (1 + g * (g + std::numbers::sqrt2));
    a1_ = static_cast<float>(a1);
    a2_ = static_cast<float>(g * a1);
    a3_ = static_cast<float>(g * g * a1);
    cutoff_ = frequency;
}

void OutputStage::rampTo(const Wanted& wanted, std::size_t samples) {
    drive_.to(headroom * wanted.drive, samples);
    makeUp_.to(makeUpFor(wanted.drive), samples);
    tube_.to(wanted.tube, samples);
    cutoffShare_.to(wanted.cutoffShare, samples);
    dry_.to(wanted.dry, samples);
    wet_.to(wanted.wet, samples);
    carrier_.to(wanted.carrier, samples);
    limiter_.to(wanted.limiter, samples);
    if (wanted.cutoff != cutoff_) {
        setCutoff(wanted.cutoff);
    }
}

void OutputStage::hold() {
    for (Ramp* const ramp :
         {&drive_, &makeUp_, &tube_, &cutoffShare_, &dry_, &wet_, &carrier_, &limiter_}) {
        ramp->hold();
    }
}

void OutputStage::jumpTo(const Wanted& wanted) {
    drive_.jump(headroom * wanted.drive);
    makeUp_.jump(makeUpFor(wanted.drive));
    tube_.jump(wanted.tube);
    cutoffShare_.jump(wanted.cutoffShare);
    dry_.jump(wanted.dry);
    wet_.jump(wanted.wet);
    carrier_.jump(wanted.carrier);
    limiter_.jump(wanted.limiter);
    setCutoff(wanted.cutoff);
}

void OutputStage::saturate(float* sound, Channel& channel, std::size_t samples,
                           std::size_t position) const {
    const bool hasTube = !tube_.isZero();
    for (std::size_t i = 0; i < samples; i += laneCount) {
        const Lanes driven = load(sound + i) * drive_.eightFrom(position + i);
        Lanes value = bend(driven);
        if (hasTube) {
            // One side bends sooner than the other, which moves the mean; that is taken out again.
            const Lanes lopsided = bend(driven + 0.45F) - bend(lanes(0.45F));
            Lanes centred;
            const std::size_t count = std::min(laneCount, samples - i);
            for (std::size_t lane = 0; lane < count; ++lane) {
                channel.blocked = lopsided[lane] - channel.before + blocking_ * channel.blocked;
                channel.before = lopsided[lane];
                centred[lane] = channel.blocked;
            }
            for (std::size_t lane = count; lane < laneCount; ++lane) {
                centred[lane] = 0;
            }
            value = value + tube_.eightFrom(position + i) * (1.3F * centred - value);
        }
        store(sound + i, value * makeUp_.eightFrom(position + i));
    }
}

void OutputStage::filter(float* sound, Filter& state, std::size_t samples,
                         std::size_t position) const {
    float first = state.first;
    float second = state.second;
    for (std::size_t i = 0; i < samples; ++i) {
        const float toGo = sound[i] - second;
        const float band = a1_ * first + a2_ * toGo;
        const float low = second + a2_ * first + a3_ * toGo;
        first = 2 * band - first;
        second = 2 * low - second;
        sound[i] += cutoffShare_.at(position + i) * (low - sound[i]);
    }
    state = {first, second};
}

void OutputStage::limit(float* left, float* right, std::size_t samples, std::size_t position) {
    for (std::size_t i = 0; i < samples; ++i) {
        peak_ = std::max(peak_ * recovery_, std::max(std::abs(left[i]), std::abs(right[i])));
        const float gain = peak_ > ceiling ? ceiling / peak_ : 1;
        const float share = 1 + limiter_.at(position + i) * (gain - 1);
        left[i] *= share;
        right[i] *= share;
    }
}

void OutputStage::process(const float* voice, const float* carrier, float* left, float* right,
                          std::size_t samples, std::size_t position, bool isStereo) {
    alignas(32) float plain[FilterBank::maximumRun];
    for (std::size_t i = 0; i < samples; i += laneCount) {
        store(plain + i, dry_.eightFrom(position + i) * load(voice + i) +
                             carrier_.eightFrom(position + i) * load(carrier + i));
    }
    const auto finish = [&](float* sound, Channel& channel) {
        saturate(sound, channel, samples, position);
        if (!cutoffShare_.isZero()) {
            filter(sound, channel.filter, samples, position);
        }
        for (std::size_t i = 0; i < samples; i += laneCount) {
            store(sound + i, wet_.eightFrom(position + i) * load(sound + i) + load(plain + i));
        }
    };
    finish(left, left_);
    if (isStereo) {
        finish(right, right_);
    } else {
        right_ = left_;
        std::memcpy(right, left, samples * sizeof(float));
    }
    if (!limiter_.isZero()) {
        limit(left, right, samples, position);
    }
}

} // namespace larkvox
