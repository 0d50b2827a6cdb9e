#include "fernhorn/model/parameter_gesture.hpp"
#include "gallery/fernhorn/host/automation_player.hpp"
#include "gallery/fernhorn/host/event_log.hpp"
#include "plugin/settings/vocoder_settings.hpp"

#include <gtest/gtest.h>

#include <thread>

namespace gallery {
namespace {

using larkvox::VocoderParameter;
using larkvox::vocoderParameterCount;
using larkvox::VocoderSettings;
using Type = platform::AUParameterAutomationEventType;

class HostTest : public testing::Test {
  protected:
    core::MainQueue queue;
    std::shared_ptr<VocoderSettings> settings = VocoderSettings::make(queue);
    std::shared_ptr<platform::AUParameterTree> tree = settings->unit().parameterTree();

    float shown(VocoderParameter which) const { return settings->parameter(which)->value(); }
};

TEST_F(HostTest, AutomationFromAnotherThreadIsTheSameEveryTime) {
    AutomationPlayer player(tree);
    player.play(90);
    queue.drain();
    const float cutoff = shown(VocoderParameter::cutoff);
    const float blend = shown(VocoderParameter::blend);
    EXPECT_NE(cutoff, settings->parameter(VocoderParameter::cutoff)->defaultValue());

    const auto again = VocoderSettings::make(queue);
    AutomationPlayer(again->unit().parameterTree()).play(90);
    queue.drain();
    EXPECT_EQ(again->parameter(VocoderParameter::cutoff)->value(), cutoff);
    EXPECT_EQ(again->parameter(VocoderParameter::blend)->value(), blend);
}

TEST_F(HostTest, PlayingStopsWithThePlayerAndCanGoOn) {
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

TEST_F(HostTest, TheLogKeepsTouchesApartAndMergesValuesWithinBounds) {
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

} // namespace
} // namespace gallery
