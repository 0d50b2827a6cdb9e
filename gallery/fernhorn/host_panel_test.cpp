#include "gallery/fernhorn/host_panel.hpp"

#include "fernhorn/buttons/press_button.hpp"
#include "fernhorn/dials/dial.hpp"
#include "plugin/testing/open_plugin_window.hpp"

#include <QTest>

namespace gallery {
namespace {

class HostPanelTest : public larkvox::testing::OpenPluginWindow {
  protected:
    int tiltFrame() const {
        for (const auto* const dial : shown<fernhorn::Dial>()) {
            if (dial->param()->address() == addressOf(larkvox::VocoderParameter::tilt)) {
                return dial->imageIndex();
            }
        }
        return 0;
    }
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
