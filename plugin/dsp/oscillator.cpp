#include "plugin/dsp/oscillator.hpp"

#include <algorithm>

namespace larkvox {

struct Oscillator::Kernel {
    /// A rising saw, its step rounded over the two samples around it.
    LARKVOX_INLINE static Lanes saw(Lanes phase, Lanes edge) {
        const Lanes rest = 1 - phase;
        const Lanes near = maximum(lanes(0), 1 - edge * minimum(phase, rest));
        const Lanes rounding = near * near;
        return 2 * phase - 1 + (phase < rest ? rounding : -rounding);
    }

    LARKVOX_INLINE static Lanes wrapped(Lanes phase) { return phase < 1.0F ? phase : phase - 1; }

    LARKVOX_INLINE static void run(Oscillator& self, float* samples, std::size_t count) {
        Lanes phase = self.phase_;
        const Lanes step = self.step_;
        const Lanes edge = self.edge_;
        const Lanes loudness = self.loudness_;
        const Shape shape = self.shape_;
        const Lanes width = lanes(std::clamp(shape.width, 0.05F, 0.95F));
        const bool hasPulse = shape.pulse > 0;
        const float sawShare = shape.saw * (1 - shape.width);
        const float triangleShare = shape.saw * shape.width;
        for (std::size_t i = 0; i < count; ++i) {
            phase = wrapped(phase + step);
            const Lanes rising = saw(phase, edge);
            Lanes value = sawShare * rising + triangleShare * (1 - 4 * magnitude(phase - 0.5F));
            if (hasPulse) {
                // The difference of two saws, and the mean that it lacks.
                const Lanes later = saw(wrapped(phase + width), edge);
                value = value + shape.pulse * (later - rising + (1 - 2 * width));
            }
            samples[i] = sum(value * loudness);
        }
        self.phase_ = phase;
    }

    static void plain(Oscillator& self, float* samples, std::size_t count) {
        run(self, samples, count);
    }
#if defined(__x86_64__)
    [[gnu::target("avx2,fma")]] static void wide(Oscillator& self, float* samples,
                                                 std::size_t count) {
        run(self, samples, count);
    }
#endif
};

Oscillator::Render Oscillator::fastestRender() {
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0) {
        return &Kernel::wide;
    }
#endif
    return &Kernel::plain;
}

void Oscillator::setVoices(const Lanes& turnsPerSample, const Lanes& loudness) {
    step_ = turnsPerSample;
    edge_ = 1 / turnsPerSample;
    loudness_ = loudness;
}

void Oscillator::reset() {
    phase_ = Lanes{0, 0.381F, 0.763F, 0.145F, 0.527F, 0.909F, 0.291F, 0.673F};
}

} // namespace larkvox
