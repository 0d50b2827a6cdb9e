// On a display that no device can draw to.

#include "platform/gpu/gpu_view.hpp"
#include "platform/testing/window_testing.hpp"
#include "shaders/about_visual.hpp"
#include "shaders/metal_shader.hpp"
#include "shaders/supporter_visual.hpp"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

TEST(NoDevice, LeavesTheGroundEmpty) {
    ASSERT_EQ(platform::GpuDevice::systemDefault(), nullptr);
    const QColor ground(0x15, 0x51, 0x9f);
    QWidget window;
    QPalette palette = window.palette();
    palette.setColor(QPalette::Window, ground);
    window.setPalette(palette);
    window.resize(200, 150);
    platform::GpuHost::install(window);
    auto* const visual = new ContentViewShader(&window);
    visual->resize(200, 150);
    for (int i = 0; i < 2; ++i) {
        platform::testing::showActive(window);
        platform::testing::runFor(50);
        ASSERT_NE(visual->controller().metalKitView(), nullptr);
        EXPECT_EQ(visual->controller().renderer(), nullptr);
        visual->updateView();
        window.showMinimized();
        window.showNormal();
        platform::testing::runFor(50);
        const QImage image = window.grab().toImage();
        for (const QPoint point : {QPoint(0, 0), QPoint(100, 75), QPoint(199, 149)}) {
            EXPECT_EQ(image.pixelColor(point * image.devicePixelRatio()), ground);
        }
        window.close();
        EXPECT_EQ(visual->controller().metalKitView(), nullptr);
    }
}

TEST(NoDevice, LeavesTheOtherVisualsEmpty) {
    QWidget window;
    window.resize(200, 150);
    auto* const sample = new AboutSampleView;
    sample->setParent(&window);
    auto* const about = new AboutShaderViewController(new QWidget(&window));
    auto* const supporter = new SupporterShaderViewController(new QWidget(&window), {});
    platform::testing::showActive(window);
    platform::testing::runFor(50);
    EXPECT_EQ(sample->renderer(), nullptr);
    EXPECT_EQ(about->renderer(), nullptr);
    EXPECT_EQ(supporter->renderer(), nullptr);
    EXPECT_NE(supporter->metalKitView(), nullptr);
    supporter->switchOn(1);
    supporter->switchUp(7);
    supporter->setInitialButtonStates(true, false, false, false, false, false);
    EXPECT_TRUE(supporter->switchOnStateToSetOnAppear());
}

} // namespace
} // namespace kestrel
