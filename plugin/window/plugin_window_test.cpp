#include "plugin/window/plugin_window.hpp"

#include "driftwood/bridges/bundle_asset_source.hpp"
#include "fernhorn/dials/dial.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/header/header_parts.hpp"
#include "platform/controls/button.hpp"
#include "platform/testing/window_testing.hpp"
#include "plugin/window/screen.hpp"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <set>

namespace larkvox {
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

TEST_F(PluginWindowTest, TheCurveOfTheBandsFollowsTheTilt) {
    const auto picture = [this] {
        for (auto* const widget : shown<QWidget>()) {
            if (dynamic_cast<BandScreen*>(widget) != nullptr) {
                return widget->grab().toImage();
            }
        }
        return QImage();
    };
    const auto level = picture();
    ASSERT_FALSE(level.isNull());
    settings->parameter(VocoderParameter::tilt)
        ->setValue(9, fernhorn::ParameterEditor::ui, fernhorn::ParameterEditorState::change);
    queue.drain();
    EXPECT_NE(picture(), level);
}

} // namespace
} // namespace larkvox

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
