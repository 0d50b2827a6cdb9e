#include "gallery/fernhorn/host/automation_player.hpp"
#include "gallery/fernhorn/host/event_log.hpp"
#include "plugin/settings/vocoder_settings.hpp"

#include <gtest/gtest.h>

#include <thread>

namespace gallery {
namespace {

using larkvox::VocoderSettings;

class HostTest : public testing::Test {
  protected:
    core::MainQueue queue;
    std::shared_ptr<VocoderSettings> settings = VocoderSettings::make(queue);
    std::shared_ptr<platform::AUParameterTree> tree = settings->unit().parameterTree();
};

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

} // namespace
} // namespace gallery
