#include "fernhorn/dials/dial.hpp"
#include "fernhorn/header/header_parts.hpp"
#include "plugin/testing/open_plugin_window.hpp"
#include "plugin/window/screen.hpp"

#include <QTest>

#include <set>

namespace larkvox {
namespace {

using PluginWindowTest = testing::OpenPluginWindow;

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
