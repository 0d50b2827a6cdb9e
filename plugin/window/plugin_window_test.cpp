#include "gallery/fernhorn/plugin_window.hpp"

#include "driftwood/bridges/bundle_asset_source.hpp"
#include "fernhorn/controls/tiny_dial.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/header/header_tabs.hpp"
#include "gallery/fernhorn/host_panel.hpp"
#include "platform/testing/window_testing.hpp"
#include "platform/ui/button.hpp"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <set>

namespace gallery {
namespace {

class PluginWindowTest : public testing::Test {
  protected:
    PluginWindowTest() {
        driftwood::installKitAssets();
        fernhorn::resourceBundle().assets().registerFonts();
        window = std::make_unique<PluginWindow>(settings);
        platform::testing::showActive(*window);
        queue.drain();
    }

    template<class Widget>
    std::vector<Widget*> shown() const {
        std::vector<Widget*> found;
        for (auto* const widget : window->findChildren<Widget*>()) {
            if (widget->isVisible()) {
                found.push_back(widget);
            }
        }
        return found;
    }
    std::vector<int> bandFrames() const {
        std::vector<int> frames;
        for (const auto* const dial : shown<fernhorn::TinyDial>()) {
            frames.push_back(dial->imageIndex());
        }
        return frames;
    }

    core::MainQueue queue;
    std::shared_ptr<VocoderSettings> settings = VocoderSettings::make(queue);
    std::unique_ptr<PluginWindow> window;
};

TEST_F(PluginWindowTest, TabsSwitchToPagesOfTheirOwn) {
    std::set<std::set<platform::AUParameterAddress>> pages;
    const auto tabs = shown<fernhorn::HeaderTab>();
    ASSERT_EQ(tabs.size(), 3U);
    for (auto* const tab : tabs) {
        QTest::mouseClick(tab, Qt::LeftButton);
        queue.drain();
        std::set<platform::AUParameterAddress> dials;
        for (const auto* const dial : shown<fernhorn::Dial>()) {
            dials.insert(dial->param()->address());
        }
        EXPECT_FALSE(dials.empty());
        pages.insert(dials);
    }
    EXPECT_EQ(pages.size(), 3U);
}

TEST_F(PluginWindowTest, DialsOfDependentsFollowADragElsewhere) {
    const auto before = bandFrames();
    ASSERT_EQ(before.size(), bandCount);
    const auto dials = shown<fernhorn::Dial>();
    const auto tilt = std::ranges::find(dials, addressOf(VocoderParameter::tilt),
                                        [](auto* dial) { return dial->param()->address(); });
    ASSERT_NE(tilt, dials.end());
    const QPoint start((*tilt)->width() / 2, 20);
    QTest::mousePress(*tilt, Qt::LeftButton, {}, start);
    for (int y = 0; y <= 80; y += 8) {
        QTest::mouseMove(*tilt, start - QPoint(0, y));
        queue.drain();
    }
    QTest::mouseRelease(*tilt, Qt::LeftButton, {}, start - QPoint(0, 80));
    queue.drain();
    const auto after = bandFrames();
    EXPECT_LT(after.front(), before.front());
    EXPECT_GT(after.back(), before.back());
}

TEST_F(PluginWindowTest, TheHostsAutomationMovesWhatIsShown) {
    HostPanel host(settings);
    const auto before = bandFrames();
    host.player().play(60);
    queue.drain();
    EXPECT_NE(bandFrames(), before);

    const auto picture = host.grab().toImage();
    host.events().refresh();
    EXPECT_NE(host.grab().toImage(), picture) << "the host does not show what it heard";
}

TEST_F(PluginWindowTest, ClosesInTheMiddleOfAutomationAndOfAPress) {
    auto host = std::make_unique<HostPanel>(settings);
    host->player().start();
    auto* const die = shown<fernhorn::PressButton>().back();
    QTest::mousePress(die, Qt::LeftButton);
    QTest::qWait(30);
    window.reset();
    host.reset();
    settings.reset();
    queue.drain();
}

} // namespace
} // namespace gallery

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
