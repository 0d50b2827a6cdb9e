#include "gallery/fernhorn/vocoder/automation_player.hpp"
#include "gallery/fernhorn/vocoder/comparison.hpp"
#include "gallery/fernhorn/vocoder/event_log.hpp"
#include "gallery/fernhorn/vocoder/frequency_formatter.hpp"
#include "gallery/fernhorn/vocoder/gain_formatter.hpp"
#include "gallery/fernhorn/vocoder/vocoder_settings.hpp"
#include "gallery/fernhorn/vocoder/waves.hpp"

#include "fernhorn/model/parameter_gesture.hpp"

#include <gmock/gmock.h>

#include <cmath>
#include <thread>

namespace gallery {
namespace {

using Type = platform::AUParameterAutomationEventType;

class VocoderTest : public testing::Test {
  protected:
    core::MainQueue queue;
    std::shared_ptr<VocoderSettings> settings = VocoderSettings::make(queue);
    std::shared_ptr<platform::AUParameterTree> tree = settings->unit().parameterTree();

    float shown(VocoderParameter which) const { return settings->parameter(which)->value(); }
};

TEST_F(VocoderTest, EveryParameterHasItsPlaceAndADefaultWithinItsRange) {
    const auto all = settings->parameters();
    ASSERT_EQ(all.size(), vocoderParameterCount);
    for (std::size_t i = 0; i < all.size(); ++i) {
        ASSERT_NE(all[i], nullptr) << i;
        EXPECT_EQ(all[i]->address(), i);
        EXPECT_EQ(all[i]->value(), all[i]->defaultValue());
        EXPECT_GE(all[i]->defaultValue(), all[i]->valueRange().lower) << all[i]->name();
        EXPECT_LE(all[i]->defaultValue(), all[i]->valueRange().upper) << all[i]->name();
        EXPECT_EQ(settings->unit().processedValue(i), all[i]->defaultValue());
    }
}

TEST_F(VocoderTest, TheBandsFollowTheTiltOnTheScreenInTheUnitAndForTheHost) {
    EventLog log(tree, 64);
    settings->parameter(VocoderParameter::tilt)
        ->setValue(-12, fernhorn::ParameterEditor::ui, fernhorn::ParameterEditorState::change);
    queue.drain();
    EXPECT_EQ(settings->band(0)->value(), 9);
    EXPECT_EQ(settings->band(bandCount - 1)->value(), -12) << "beyond the range";
    EXPECT_EQ(settings->unit().processedValue(addressOfBand(0)), 9);
    ASSERT_TRUE(log.collect());
    EXPECT_EQ(log.lines().size(), 1 + bandCount);
}

TEST_F(VocoderTest, ComparingExchangesAllValuesAlsoThoseThatFollowOthers) {
    Comparison comparison(settings->parameters());
    const auto set = [](const auto& parameter, float value) {
        parameter->setValue(value, fernhorn::ParameterEditor::ui,
                            fernhorn::ParameterEditorState::change);
    };
    set(settings->parameter(VocoderParameter::tilt), 6);
    queue.drain();
    set(settings->band(3), -7);
    set(settings->parameter(VocoderParameter::mode), 2);
    queue.drain();

    comparison.swap();
    queue.drain();
    for (const auto& parameter : settings->parameters()) {
        EXPECT_EQ(parameter->value(), parameter->defaultValue()) << parameter->name();
    }
    comparison.swap();
    queue.drain();
    EXPECT_EQ(shown(VocoderParameter::tilt), 6);
    EXPECT_EQ(settings->band(3)->value(), -7) << "the tilt has had the last word";
    EXPECT_EQ(shown(VocoderParameter::mode), 2);
}

TEST_F(VocoderTest, AutomationFromAnotherThreadIsTheSameEveryTime) {
    AutomationPlayer player(tree);
    player.play(90);
    queue.drain();
    const float cutoff = shown(VocoderParameter::cutoff);
    const float blend = shown(VocoderParameter::blend);
    EXPECT_NE(cutoff, settings->parameter(VocoderParameter::cutoff)->defaultValue());
    EXPECT_NE(settings->band(0)->value(), settings->band(0)->defaultValue());

    const auto again = VocoderSettings::make(queue);
    AutomationPlayer(again->unit().parameterTree()).play(90);
    queue.drain();
    EXPECT_EQ(again->parameter(VocoderParameter::cutoff)->value(), cutoff);
    EXPECT_EQ(again->parameter(VocoderParameter::blend)->value(), blend);
}

TEST_F(VocoderTest, PlayingStopsWithThePlayerAndCanGoOn) {
    EventLog log(tree, 8);
    {
        AutomationPlayer player(tree);
        for (int i = 0; i < 20; ++i) {
            player.start();
            player.start();
            EXPECT_TRUE(player.isPlaying());
            player.stop();
            EXPECT_FALSE(player.isPlaying());
        }
        player.start();
        while (!log.collect()) {
            std::this_thread::yield();
        }
    }
    log.collect();
    const auto after = log.eventCount();
    log.collect();
    EXPECT_EQ(log.eventCount(), after) << "somebody is still playing";
}

TEST_F(VocoderTest, TheLogKeepsTouchesApartAndMergesValuesWithinBounds) {
    constexpr std::size_t room = 6;
    EventLog log(tree, room);
    EXPECT_FALSE(log.collect());
    const auto& drive = settings->parameter(VocoderParameter::drive);
    {
        fernhorn::ParameterGesture gesture(drive);
        for (int i = 0; i < 50; ++i) {
            gesture.change(static_cast<float>(i % 20));
            settings->parameter(VocoderParameter::blend)
                ->auParameter()
                ->setValue(static_cast<float>(i)); // the host plays meanwhile
        }
    }
    ASSERT_TRUE(log.collect());
    ASSERT_EQ(log.lines().size(), 4U);
    EXPECT_EQ(log.lines()[0].event.eventType, Type::release);
    EXPECT_EQ(log.lines()[1].count + log.lines()[2].count, 100U);
    EXPECT_EQ(log.lines()[3].event.eventType, Type::touch);

    for (int i = 0; i < 20'000; ++i) {
        tree->parameterWithAddress(static_cast<platform::AUParameterAddress>(i) %
                                   vocoderParameterCount)
            ->setValue(0, {}, 0, i % 2 == 0 ? Type::touch : Type::release);
    }
    log.collect();
    EXPECT_EQ(log.lines().size(), room);
    EXPECT_GT(log.lostCount(), 0U) << "20,000 events were kept";
    queue.drain();
}

TEST(WavesTest, StayOnTheScreenWhateverTheirParametersAre) {
    for (const double amount : {0.0, 0.3, 0.5, 1.0}) {
        for (int kind = 0; kind < 4; ++kind) {
            const Motion motion{static_cast<MotionShape>(kind), 1, amount - 0.5, amount};
            const Carrier carrier{static_cast<CarrierWave>(kind % 3), amount, 50, 1 + 2 * kind};
            for (double turns = -1; turns < 8; turns += 0.01) {
                ASSERT_LE(std::abs(motion.at(turns)), 1) << kind << " at " << turns;
                ASSERT_LE(std::abs(carrier.at(turns)), 1) << kind << " at " << turns;
            }
        }
    }
    const Motion even{MotionShape::ramp, 1, 0, 0.5};
    EXPECT_NEAR(even.at(0.25), even.at(1.25), 1e-9);
    const Motion swung{MotionShape::ramp, 1, 0, 0.6};
    EXPECT_NEAR(swung.at(0.6), 0, 1e-9) << "the first turn takes 1.2 of 2";
}

TEST(GainFormatterTest, SignsWhatIsNotNought) {
    const GainFormatter formatter;
    EXPECT_EQ(formatter.format(2.6F), "+3");
    EXPECT_EQ(formatter.format(-0.3F), "0");
    EXPECT_EQ(formatter.format(-12), "-12");
    EXPECT_EQ(formatter.parse(formatter.format(7)), 7.0F);
}

TEST(FrequencyFormatterTest, WritesWhatItReadsInBothUnits) {
    const FrequencyFormatter formatter;
    struct Case {
        float value;
        const char* text;
    };
    for (const auto& [value, text] :
         {Case{0.25F, "0.25 Hz"}, Case{20, "20.0 Hz"}, Case{640, "640 Hz"},
          Case{999.6F, "1.00 kHz"}, Case{1200, "1.20 kHz"}, Case{18000, "18.0 kHz"}}) {
        EXPECT_EQ(formatter.format(value), text);
        EXPECT_NEAR(formatter.parse(text).value_or(-1), value, value * 0.001F) << text;
    }
    EXPECT_EQ(formatter.parse("2k"), 2000.0F);
    EXPECT_EQ(formatter.parse("440"), 440.0F);
    for (const char* const text : {"", "Hz", "1 kilo", "1.2.3 Hz", "2 kk", "fast"}) {
        EXPECT_EQ(formatter.parse(text), std::nullopt) << text;
    }
}

} // namespace
} // namespace gallery
