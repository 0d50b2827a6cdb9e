#include "plugin/dsp/filter_bank.hpp"

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstring>
#include <numbers>

namespace larkvox {

namespace {

constexpr double lowest = 80;     // Hz, the edges of the outer bands
constexpr double highest = 11000; // Hz
constexpr double usable = 0.45;   // of the sample rate
/// How far the filters reach beyond where bands meet. Low bands are narrow, so that they would be
/// late and miss notes between them: they reach further.
double overlap(double frequency) {
    const double high = std::clamp(std::log2(frequency / 300) / 2, 0.0, 1.0);
    return 1.4 - 0.4 * high;
}

/// The ear's scale of frequencies, and back.
double earScale(double frequency) {
    return std::asinh(frequency / 600);
}
double frequencyAt(double place) {
    return 600 * std::sinh(place);
}

/// tan x for 0 ≤ x ≤ 0.45 π, to four digits.
LARKVOX_INLINE Lanes tangent(Lanes x) {
    const Lanes x2 = x * x;
    return x * (945 + x2 * (x2 - 105)) / (945 + x2 * (15 * x2 - 420));
}

} // namespace

struct FilterBank::Kernel {
    LARKVOX_INLINE static Lanes band(Filter& filter, Lanes input) {
        const Lanes band = filter.a1 * filter.first + filter.a2 * (input - filter.second);
        filter.first = 2 * band - filter.first;
        filter.second = filter.second + filter.twoG * band;
        return band;
    }

    template<bool isStereo>
    LARKVOX_INLINE static void run(FilterBank& bank, const float* voice, const float* carrier,
                                   float* left, float* right, std::size_t samples) {
        Lanes sumLeft[maximumRun];
        Lanes sumRight[maximumRun];
        for (std::size_t index = 0; index < bank.groupCount_; ++index) {
            Group group = bank.groups_[index];
            for (std::size_t i = 0; i < samples; ++i) {
                Lanes heard = lanes(voice[i]);
                for (std::size_t stage = 0; stage + 1 < voiceStages; ++stage) {
                    heard = group.voice[stage].damping * band(group.voice[stage], heard);
                }
                heard = band(group.voice.back(), heard);
                group.power = group.power + heard * heard;

                group.gain = group.gain + group.gainStep;
                Lanes shaped = group.gain * lanes(carrier[i]);
                for (std::size_t stage = 0; stage + 1 < carrierStages; ++stage) {
                    shaped = group.carrier[stage].damping * band(group.carrier[stage], shaped);
                }
                shaped = band(group.carrier.back(), shaped);
                sumLeft[i] = index == 0 ? group.left * shaped : sumLeft[i] + group.left * shaped;
                if constexpr (isStereo) {
                    sumRight[i] =
                        index == 0 ? group.right * shaped : sumRight[i] + group.right * shaped;
                }
            }
            bank.groups_[index] = group;
        }
        for (std::size_t i = 0; i < samples; ++i) {
            left[i] = sum(sumLeft[i]);
            if constexpr (isStereo) {
                right[i] = sum(sumRight[i]);
            }
        }
    }

    LARKVOX_INLINE static void runEither(FilterBank& bank, const float* voice, const float* carrier,
                                         float* left, float* right, std::size_t samples) {
        if (bank.isStereo_) {
            run<true>(bank, voice, carrier, left, right, samples);
        } else {
            run<false>(bank, voice, carrier, left, right, samples);
        }
    }

    static void plain(FilterBank& bank, const float* voice, const float* carrier, float* left,
                      float* right, std::size_t samples) {
        runEither(bank, voice, carrier, left, right, samples);
    }
#if defined(__x86_64__)
    [[gnu::target("avx2,fma")]] static void wide(FilterBank& bank, const float* voice,
                                                 const float* carrier, float* left, float* right,
                                                 std::size_t samples) {
        runEither(bank, voice, carrier, left, right, samples);
    }
    // Registers of the same width, but twice as many.
    [[gnu::target("avx2,fma,avx512f,avx512vl")]] static void
    widest(FilterBank& bank, const float* voice, const float* carrier, float* left, float* right,
           std::size_t samples) {
        runEither(bank, voice, carrier, left, right, samples);
    }
#endif
};

FilterBank::Process FilterBank::fastestProcess() {
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0) {
        const bool hasMore =
            __builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512vl") != 0;
        return hasMore ? &Kernel::widest : &Kernel::wide;
    }
#endif
    return &Kernel::plain;
}

void FilterBank::tune(std::span<Filter> filters, const Lanes& turns) {
    const Lanes middle = tangent(turns);
    for (Filter& filter : filters) {
        const Lanes g = middle * filter.detune;
        filter.a1 = 1 / (1 + g * (g + filter.damping));
        filter.a2 = g * filter.a1;
        filter.twoG = 2 * g;
    }
}

/// Flat within the band and steep beyond it: the poles of a Butterworth filter, each moved from
/// around 0 to around the band. Returns what makes the gain in the middle 1, given that the last
/// filter's output is taken before its damping.
float FilterBank::shape(std::span<Filter> filters, std::size_t lane, double width) {
    using Complex = std::complex<double>;
    Complex level = 1;
    double turn = std::numbers::pi / (2.0 * static_cast<double>(filters.size()));
    const double step = 2 * turn;
    for (Filter& filter : filters) {
        const Complex half = Complex(-std::sin(turn), std::cos(turn)) * (width / 2);
        const Complex pole = half + std::sqrt(half * half - 1.0);
        const double distance = std::abs(pole);
        const double damping = -2 * pole.real() / distance;
        filter.detune[lane] = static_cast<float>(distance);
        filter.damping[lane] = static_cast<float>(damping);
        level *= damping / Complex(damping, 1 / distance - distance);
        turn += step;
    }
    return filters.back().damping[lane] * static_cast<float>(1 / std::abs(level));
}

void FilterBank::setBands(std::size_t count, double sampleRate) {
    count_ = std::clamp<std::size_t>(count, 1, maximumBands);
    groupCount_ = (count_ + laneCount - 1) / laneCount;
    groups_ = {};
    frequencies_ = {};
    const double first = earScale(lowest);
    const double step =
        (earScale(std::min(highest, usable * sampleRate)) - first) / static_cast<double>(count_);
    for (std::size_t band = 0; band < groupCount_ * laneCount; ++band) {
        // Those that nobody needs are computed along with the last group: as the last band.
        const double place = first + step * static_cast<double>(std::min(band, count_ - 1));
        const double low = frequencyAt(place);
        const double high = frequencyAt(place + step);
        const double middle = std::sqrt(low * high);
        const double width = overlap(middle) * (high - low) / middle;
        Group& group = groups_[band / laneCount];
        const std::size_t lane = band % laneCount;
        if (band < count_) {
            frequencies_[band] = static_cast<float>(middle);
        }
        group.warped[lane] = static_cast<float>(std::numbers::pi * middle / sampleRate);
        group.voiceLevel[lane] = shape(group.voice, lane, width);
        group.carrierLevel[lane] = shape(group.carrier, lane, width);
    }
    for (Group& group : std::span(groups_).first(groupCount_)) {
        tune(group.voice, group.warped);
    }
    shiftCarrier(1);
}

void FilterBank::shiftCarrier(float ratio) {
    constexpr auto limit = static_cast<float>(std::numbers::pi * usable);
    for (std::size_t index = 0; index < groupCount_; ++index) {
        Group& group = groups_[index];
        const Lanes wanted = group.warped * ratio;
        tune(group.carrier, minimum(wanted, lanes(limit)));
        group.audible = wanted > limit ? lanes(0) : lanes(1);
    }
}

void FilterBank::setPositions(const PerBand& positions) {
    isStereo_ = false;
    for (std::size_t band = 0; band < groupCount_ * laneCount; ++band) {
        Group& group = groups_[band / laneCount];
        const std::size_t lane = band % laneCount;
        const float position = positions[band];
        const bool exists = band < count_;
        isStereo_ = isStereo_ || (exists && position != 0);
        group.left[lane] = exists ? group.carrierLevel[lane] * std::sqrt(1 - position) : 0;
        group.right[lane] = exists ? group.carrierLevel[lane] * std::sqrt(1 + position) : 0;
    }
}

void FilterBank::rampGains(const PerBand& gains, std::size_t samples) {
    const float share = 1 / static_cast<float>(samples);
    for (std::size_t index = 0; index < groupCount_; ++index) {
        Group& group = groups_[index];
        Lanes wanted;
        std::memcpy(&wanted, &gains[index * laneCount], sizeof wanted);
        wanted = wanted * group.audible;
        // Silence is exact: what is too faint to be heard does not linger.
        group.gain = magnitude(group.gain) < 1e-7F ? lanes(0) : group.gain;
        group.gainStep = (wanted - group.gain) * share;
    }
}

void FilterBank::takePowers(PerBand& powers, std::size_t samples) {
    const float share = 2 / static_cast<float>(samples);
    for (std::size_t index = 0; index < groupCount_; ++index) {
        Group& group = groups_[index];
        const Lanes power = group.power * group.voiceLevel * group.voiceLevel * share;
        std::memcpy(&powers[index * laneCount], &power, sizeof power);
        group.power = lanes(0);
    }
}

} // namespace larkvox
