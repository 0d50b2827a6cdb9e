#include "plugin/dsp/vocoder.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace larkvox {
namespace {

using Which = VocoderParameter;
using Sound = std::vector<float>;

struct Stereo {
    Sound left, right;
    friend bool operator==(const Stereo&, const Stereo&) = default;
};

Sound noise(std::size_t samples, float level, unsigned seed = 1) {
    std::minstd_rand random(seed);
    std::uniform_real_distribution<float> value(-level, level);
    Sound sound(samples);
    for (float& sample : sound) {
        sample = value(random);
    }
    return sound;
}

float peak(const Sound& sound, std::size_t from = 0) {
    float highest = 0;
    for (std::size_t i = from; i < sound.size(); ++i) {
        highest = std::max(highest, std::isfinite(sound[i]) ? std::abs(sound[i]) : INFINITY);
    }
    return highest;
}

/// A value of a parameter's whole range.
float anyValue(std::size_t address, std::minstd_rand& random) {
    const auto range = vocoderParameters()[address].range;
    return std::uniform_real_distribution<float>(range.lower, range.upper)(random);
}

/// Everything on, so that nothing is left out.
void setAll(Vocoder& vocoder, unsigned seed) {
    std::minstd_rand random(seed);
    for (std::size_t address = 0; address < vocoderParameterCount; ++address) {
        vocoder.set(address, anyValue(address, random));
    }
    for (const auto which : {Which::bypass, Which::freeze, Which::solo}) {
        vocoder.set(which, 0);
    }
}

/// Plays both sounds in blocks of these sizes, over and over; a parameter moves at every 3,000th
/// sample.
Stereo played(Vocoder& vocoder, const Sound& voice, const Sound& carrier,
              const std::vector<std::size_t>& blocks) {
    Stereo out{Sound(voice.size()), Sound(voice.size())};
    std::size_t block = 0;
    for (std::size_t at = 0; at < voice.size();) {
        if (at % 3000 == 0) {
            vocoder.set(Which::formant, at % 6000 == 0 ? 700 : -500);
            vocoder.set(Which::bands, static_cast<float>(at / 3000 % 8));
        }
        const auto count =
            std::min({blocks[block++ % blocks.size()], voice.size() - at, 3000 - at % 3000});
        vocoder.process(&voice[at], &carrier[at], &out.left[at], &out.right[at], count);
        at += count;
    }
    return out;
}

TEST(VocoderTest, SoundsTheSameHoweverTheSoundIsCut) {
    const auto voice = noise(24000, 0.5F);
    const auto carrier = noise(24000, 0.5F, 2);
    for (const double rate : {22050.0, 48000.0, 192000.0}) {
        for (unsigned seed = 1; seed <= 12; ++seed) {
            std::unique_ptr<Vocoder> vocoder;
            const auto render = [&](const std::vector<std::size_t>& blocks) {
                if (blocks.front() != 512) {
                    vocoder = std::make_unique<Vocoder>(rate);
                }
                setAll(*vocoder, seed);
                return played(*vocoder, voice, carrier, blocks);
            };
            const auto whole = render({8192});
            ASSERT_GT(peak(whole.left), 0) << seed;
            EXPECT_EQ(render({1}), whole) << rate << " " << seed;
            EXPECT_EQ(render({64}), whole) << rate << " " << seed;
            EXPECT_EQ(render({1, 7, 300, 33, 2, 2049}), whole) << rate << " " << seed;
            vocoder->reset(); // is as good as another one
            EXPECT_EQ(render({512}), whole) << rate << " " << seed;
        }
    }
}

TEST(VocoderTest, SilenceGivesSilenceWithinTheRelease) {
    for (const double rate : {22050.0, 48000.0, 96000.0, 192000.0}) {
        for (const float source : {0.0F, 1.0F, 2.0F, 3.0F}) {
            const auto vocoder = std::make_unique<Vocoder>(rate);
            vocoder->set(Which::source, source);
            vocoder->set(Which::unison, 5);
            vocoder->set(Which::sibilance, 0);
            vocoder->set(Which::release, 50);
            const auto second = static_cast<std::size_t>(rate);
            Sound voice = noise(second, 0.5F);
            voice.resize(3 * second);
            const auto carrier = noise(3 * second, 0.5F, 2);
            Stereo out{Sound(voice.size()), Sound(voice.size())};
            vocoder->process(voice.data(), carrier.data(), out.left.data(), out.right.data(),
                             voice.size());
            EXPECT_GT(peak(out.left), 0.05F) << rate << " " << source;
            // 60 dB down after seven time constants, and nothing at all in the end.
            EXPECT_LT(peak(out.left, second + second * 4 / 10), 0.002F) << rate << " " << source;
            EXPECT_EQ(peak(out.left, 2 * second + second / 2), 0) << rate << " " << source;
            EXPECT_EQ(peak(out.right, 2 * second + second / 2), 0) << rate << " " << source;
        }
    }
}

TEST(VocoderTest, StaysFiniteAndBoundedForAnySetting) {
    // Ten vocoders of different rates, their settings exchanged without a pause.
    constexpr int settings = 100'000;
    constexpr std::array<double, 5> rates{22050, 44100, 48000, 96000, 192000};
    std::minstd_rand random(3);
    std::vector<std::unique_ptr<Vocoder>> vocoders;
    for (const double rate : rates) {
        vocoders.push_back(std::make_unique<Vocoder>(rate));
    }
    const auto voice = noise(4096, 1);
    const auto carrier = noise(4096, 1, 2);
    std::array<float, 24> left{};
    std::array<float, 24> right{};
    float highest = 0;
    for (int i = 0; i < settings; ++i) {
        Vocoder& vocoder = *vocoders[static_cast<std::size_t>(i) % vocoders.size()];
        for (std::size_t address = 0; address < vocoderParameterCount; ++address) {
            const int kind = static_cast<int>(random() % 40);
            const auto range = vocoderParameters()[address].range;
            vocoder.set(address, kind == 0   ? range.lower
                                 : kind == 1 ? range.upper
                                 : kind == 2 ? std::nanf("")
                                 : kind == 3 ? INFINITY
                                             : anyValue(address, random));
        }
        const std::size_t at = random() % (voice.size() - left.size());
        vocoder.process(&voice[at], i % 7 == 0 ? nullptr : &carrier[at], left.data(), right.data(),
                        left.size());
        for (const float value : left) {
            highest = std::max(highest, std::isfinite(value) ? std::abs(value) : INFINITY);
        }
        for (const float value : right) {
            highest = std::max(highest, std::isfinite(value) ? std::abs(value) : INFINITY);
        }
        ASSERT_LT(highest, 100) << "after " << i;
    }
}

TEST(VocoderTest, RecoversFromWhatIsNoSound) {
    const auto vocoder = std::make_unique<Vocoder>(48000);
    vocoder->set(Which::source, 3);
    auto voice = noise(9600, 0.5F);
    auto carrier = noise(9600, 0.5F, 2);
    for (const float bad : {std::nanf(""), INFINITY, -INFINITY, 3e38F, 1e-42F}) {
        voice[400] = carrier[700] = bad;
        Stereo out{Sound(voice.size()), Sound(voice.size())};
        vocoder->process(voice.data(), carrier.data(), out.left.data(), out.right.data(),
                         voice.size());
        EXPECT_LT(peak(out.left), 10) << bad;
        EXPECT_GT(peak(out.left, 4800), 0.02F) << bad;
    }
}

TEST(VocoderTest, BypassAndBlendGiveTheVoiceBackUnchanged) {
    const auto voice = noise(4000, 0.8F);
    for (const auto& [which, value] :
         {std::pair{Which::bypass, 1.0F}, std::pair{Which::blend, 0.0F}}) {
        const auto vocoder = std::make_unique<Vocoder>(48000);
        vocoder->set(which, value);
        Stereo out{voice, Sound(voice.size())}; // in place
        vocoder->process(out.left.data(), nullptr, out.left.data(), out.right.data(), voice.size());
        EXPECT_EQ(out.left, voice);
        EXPECT_EQ(out.right, voice);
    }
}

} // namespace
} // namespace larkvox
