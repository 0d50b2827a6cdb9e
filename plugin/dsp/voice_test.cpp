#include "plugin/dsp/vocoder.hpp"
#include "plugin/testing/sound.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace larkvox {
namespace {

using testing::envelopeCorrelation;
using testing::repetition;
using testing::Sound;
using Which = VocoderParameter;

constexpr double rate = 44100;

class VoiceTest : public ::testing::Test {
  protected:
    void SetUp() override {
        if (voice.empty()) {
            GTEST_SKIP() << "NOT TESTED: no espeak-ng is installed, so there is no voice";
        }
    }

    Sound vocoded(std::initializer_list<std::pair<Which, float>> values,
                  double carrierPitch = 110) {
        const auto vocoder = std::make_unique<Vocoder>(rate);
        for (const auto& [which, value] : values) {
            vocoder->set(which, value);
        }
        const auto carrier = testing::sawCarrier(carrierPitch, rate, voice.size());
        Sound left(voice.size());
        Sound right(voice.size());
        vocoder->process(voice.data(), carrier.data(), left.data(), right.data(), voice.size());
        return left;
    }

    const Sound voice = testing::spokenVoice(rate);
};

constexpr float external = static_cast<float>(Source::external);

TEST_F(VoiceTest, TheBandsKeepTheVoicesEnvelopeAndTheCarriersPitch) {
    struct Case {
        const char* what;
        float source;
        double pitch;
        double least;
    };
    for (const auto& [what, source, pitch, least] :
         {Case{"a carrier from outside", external, 110, 0.9}, Case{"another", external, 82.4, 0.89},
          Case{"its own saw", 0, 110, 0.89}, Case{"its own pulse", 1, 110, 0.88}}) {
        const auto sound = vocoded({{Which::source, source}}, pitch);
        EXPECT_GE(envelopeCorrelation(voice, sound, rate), least) << what;
        EXPECT_GE(repetition(sound, pitch, rate), 0.8) << what;
        EXPECT_LE(repetition(sound, pitch * 1.26, rate), 0.5) << what;
    }
}

TEST_F(VoiceTest, IsAsLoudAsTheVoice) {
    const auto power = [](const Sound& sound) {
        double sum = 0;
        for (const float value : sound) {
            sum += static_cast<double>(value) * static_cast<double>(value);
        }
        return sum;
    };
    for (const float bands : {0.0F, 2.0F, 4.0F, 7.0F}) {
        for (const float source : {0.0F, 1.0F, 2.0F, external}) {
            const auto sound = vocoded({{Which::source, source}, {Which::bands, bands}});
            const double decibels = 10 * std::log10(power(sound) / power(voice));
            EXPECT_NEAR(decibels, 0, 6) << "source " << source << ", bands " << bands;
        }
    }
}

} // namespace
} // namespace larkvox
