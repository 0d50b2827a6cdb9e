#include "gallery/fernhorn/host_panel.hpp"

#include "driftwood/bridges/bundle_asset_source.hpp"
#include "fernhorn/buttons/press_button.hpp"
#include "fernhorn/dials/dial.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "platform/testing/window_testing.hpp"
#include "plugin/window/plugin_window.hpp"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace gallery {
namespace {

using larkvox::PluginWindow;
using larkvox::VocoderSettings;

class HostPanelTest : public testing::Test {
  protected:
    HostPanelTest() {
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
    int tiltFrame() const {
        for (const auto* const dial : shown<fernhorn::Dial>()) {
            if (dial->param()->address() == addressOf(larkvox::VocoderParameter::tilt)) {
                return dial->imageIndex();
            }
        }
        return 0;
    }

    core::MainQueue queue;
    std::shared_ptr<VocoderSettings> settings = VocoderSettings::make(queue);
    std::unique_ptr<PluginWindow> window;
};

TEST_F(HostPanelTest, TheHostsAutomationMovesWhatIsShown) {
    HostPanel host(settings);
    const auto before = tiltFrame();
    host.player().play(60);
    queue.drain();
    EXPECT_NE(tiltFrame(), before);

    const auto picture = host.grab().toImage();
    host.events().refresh();
    EXPECT_NE(host.grab().toImage(), picture) << "the host does not show what it heard";
}

TEST_F(HostPanelTest, ClosesInTheMiddleOfAutomationAndOfAPress) {
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
