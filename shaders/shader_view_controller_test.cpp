#include "platform/gpu/gpu_view.hpp"
#include "platform/testing/window_testing.hpp"
#include "shaders/testing/test_support.hpp"

#include <QApplication>
#include <QWindow>

#include <gtest/gtest.h>

#include <memory>

namespace kestrel {
namespace {

using core::Seconds;
using platform::testing::runFor;
using platform::testing::runUntil;
using platform::testing::screenshot;
using platform::testing::showActive;

const QColor ground(0x15, 0x11, 0x1f);

class ShaderViewControllerTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_NE(platform::GpuDevice::systemDefault(), nullptr);
        prepare(*window);
        container = new QWidget(window.get());
        container->setGeometry(0, 0, 400, 300);
        controller = makeController("audioWaveformFragmentShader");
        other.setGeometry(420, 0, 100, 100); // beside it, covers nothing
    }

    static void prepare(QWidget& window) {
        QPalette palette = window.palette();
        palette.setColor(QPalette::Window, ground);
        window.setPalette(palette);
        window.resize(400, 350);
        platform::GpuHost::install(window);
    }
    MetalShaderViewController* makeController(const char* fragmentFunction) {
        return new MetalShaderViewController(container, QStringLiteral("Main"),
                                             QStringLiteral("audioWaveformVertexShader"),
                                             QString::fromLatin1(fragmentFunction), {}, clock);
    }

    void show() {
        showActive(*window);
        runFor(20);
    }
    [[nodiscard]] platform::GpuView& view() const { return *controller->metalKitView(); }
    [[nodiscard]] MetalShaderRenderer& renderer() const { return *controller->renderer(); }
    [[nodiscard]] long framesWithin(int milliseconds) const {
        const long before = view().frameCount();
        runFor(milliseconds);
        return view().frameCount() - before;
    }
    /// As slow as the machine may be.
    [[nodiscard]] bool drawsFrames(long count) const {
        const long wanted = view().frameCount() + count;
        return runUntil([&] { return view().frameCount() >= wanted; });
    }
    /// Pixels of the container on the screen that are not the ground.
    [[nodiscard]] int litPixels() const {
        return testing::pixelsNot(screenshot(*container), ground);
    }

    core::ManualClock clock;
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QWidget other;
    QWidget* container = nullptr;
    MetalShaderViewController* controller = nullptr; // owned by the container
};

TEST_F(ShaderViewControllerTest, FollowsTheSizeInPixels) {
    show();
    EXPECT_EQ(view().colorSpace(), platform::DrawableColorSpace::extendedLinearSRGB);
    EXPECT_EQ(view().preferredFramesPerSecond(), 60);
    const auto scale = static_cast<float>(window->devicePixelRatio());
    for (const QSize size : {QSize(400, 300), QSize(311, 123), QSize(20, 350)}) {
        container->resize(size);
        const QuadRenderer::ViewSize pixels{static_cast<float>(size.width()) * scale,
                                            static_cast<float>(size.height()) * scale};
        EXPECT_TRUE(runUntil([&] { return renderer().viewSize() == pixels; }));
    }
}

TEST_F(ShaderViewControllerTest, StandsStillWhileItsWindowIsNotKey) {
    clock.set(Seconds(0));
    show();
    EXPECT_TRUE(drawsFrames(3));
    clock.set(Seconds(10));
    showActive(other);
    EXPECT_EQ(framesWithin(500), 0);
    controller->handleDidBecomeKey(&other);                 // not its window
    controller->handleDidBecomeKey(container);              // no window
    controller->handleDidBecomeKey(window->windowHandle()); // no widget
    controller->handleDidBecomeKey(nullptr);
    EXPECT_TRUE(view().isPaused());
    view().setNeedsDisplay();
    EXPECT_TRUE(drawsFrames(1));
    EXPECT_EQ(framesWithin(200), 0);

    clock.set(Seconds(15));
    showActive(*window);
    clock.set(Seconds(16));
    EXPECT_FLOAT_EQ(renderer().time(), 11);
    EXPECT_TRUE(drawsFrames(3));

    clock.set(Seconds(20));
    controller->handleDidResignKey(&other);
    EXPECT_FALSE(view().isPaused());
    controller->handleDidResignKey(window.get());
    clock.set(Seconds(22));
    controller->handleDidResignKey(window.get());
    clock.set(Seconds(25));
    controller->handleDidBecomeKey(window.get());
    clock.set(Seconds(26));
    EXPECT_FLOAT_EQ(renderer().time(), 11 + 10 - 3);
}

TEST_F(ShaderViewControllerTest, OutOfSightIsAPauseOnlyWhenThereIsNone) {
    clock.set(Seconds(0));
    show();
    clock.set(Seconds(10));
    controller->windowDidHideFromSight();
    EXPECT_TRUE(view().isPaused());
    clock.set(Seconds(11));
    controller->windowDidHideFromSight(); // neither of the two opens it anew
    clock.set(Seconds(15));
    controller->windowDidReturnToSight();
    clock.set(Seconds(16));
    EXPECT_FLOAT_EQ(renderer().time(), 11);
    EXPECT_FALSE(view().isPaused());

    // Two reasons are one pause from the first to the last of them, in whichever order they go.
    double now = 20;
    double shown = 15;
    for (const bool isSightFirst : {true, false}) {
        for (const bool isSightLast : {true, false}) {
            const auto hide = [&] { controller->windowDidHideFromSight(); };
            const auto resign = [&] { controller->handleDidResignKey(window.get()); };
            const auto sight = [&] { controller->windowDidReturnToSight(); };
            const auto key = [&] { controller->handleDidBecomeKey(window.get()); };
            clock.set(Seconds(now));
            isSightFirst ? hide() : resign();
            clock.set(Seconds(now + 3600));
            isSightFirst ? resign() : hide();
            clock.set(Seconds(now + 3603));
            isSightLast ? key() : sight();
            EXPECT_TRUE(view().isPaused());
            clock.set(Seconds(now + 3605));
            isSightLast ? sight() : key();
            EXPECT_FALSE(view().isPaused());
            EXPECT_FLOAT_EQ(renderer().time(), static_cast<float>(shown));
            now += 3606;
            shown += 1;
        }
    }
}

TEST_F(ShaderViewControllerTest, ShowsAStillPictureUntilItsWindowIsKey) {
    clock.set(Seconds(0));
    showActive(other);
    window->show();
    EXPECT_TRUE(runUntil([&] { return litPixels() > 2000; }));
    EXPECT_TRUE(view().isPaused());
    EXPECT_EQ(framesWithin(200), 0);
    clock.set(Seconds(10));
    showActive(*window);
    clock.set(Seconds(12));
    EXPECT_FLOAT_EQ(renderer().time(), 2);
    EXPECT_TRUE(drawsFrames(3));
}

TEST_F(ShaderViewControllerTest, StandsStillWhileItIsCovered) {
    show();
    EXPECT_TRUE(drawsFrames(3));
    other.setWindowFlag(Qt::ToolTip); // takes the keyboard from nobody
    other.setGeometry(window->frameGeometry().adjusted(-10, -10, 10, 10));
    other.show();
    EXPECT_TRUE(runUntil([&] { return view().isPaused(); }));
    EXPECT_TRUE(window->isActiveWindow());
    EXPECT_EQ(framesWithin(200), 0);
    other.resize(50, 50); // a part is seen again
    EXPECT_TRUE(runUntil([&] { return !view().isPaused(); }));
    EXPECT_TRUE(drawsFrames(3));
}

TEST_F(ShaderViewControllerTest, StartsAnewWheneverItAppears) {
    EXPECT_EQ(controller->metalKitView(), nullptr);
    const std::vector<std::function<void()>> departures{
        [&] { window->close(); }, [&] { container->hide(); }, [&] { container->setParent(&other); },
        [&] { container->setParent(window.get()); }};
    prepare(other);
    other.move(450, 0);
    double start = 0;
    show();
    for (const auto& leave : departures) {
        clock.set(Seconds(start + 100));
        EXPECT_FLOAT_EQ(renderer().time(), 100);
        const std::uint32_t seed = renderer().seed();
        leave();
        EXPECT_EQ(controller->metalKitView(), nullptr);
        EXPECT_EQ(controller->renderer(), nullptr);
        controller->handleDidResignKey(window.get()); // harmless
        controller->handleDidBecomeKey(window.get());
        start += 200;
        clock.set(Seconds(start));
        container->show();
        showActive(*container->window());
        EXPECT_FLOAT_EQ(renderer().time(), 0);
        EXPECT_NE(renderer().seed(), seed);
        clock.set(Seconds(start + 3));
        EXPECT_TRUE(runUntil([&] { return litPixels() > 8000; }));
    }
}

TEST_F(ShaderViewControllerTest, GoesWhileItIsVisible) {
    show();
    delete controller; // alone
    EXPECT_EQ(container->findChild<platform::GpuView*>(), nullptr);
    runFor(50);
    makeController("audioWaveformFragmentShader");
    container->hide();
    container->show();
    runFor(50);
    EXPECT_NE(container->findChild<platform::GpuView*>(), nullptr);
    delete container; // with its container
    runFor(50);
    auto* const visual = new ContentViewShader(window.get());
    visual->show();
    runFor(50);
    ASSERT_NE(visual->controller().renderer(), nullptr);
    showActive(other);
    runFor(50);
    const platform::GpuView& drawn = *visual->controller().metalKitView();
    const long before = drawn.frameCount(); // one more when what it is shown with changes
    visual->setEnabled(false);
    EXPECT_TRUE(runUntil([&] { return drawn.frameCount() == before + 1; }));
    window.reset(); // with its window
    runFor(50);
}

TEST_F(ShaderViewControllerTest, IsEmptyWithoutItsFunctions) {
    for (const char* const name : {"none", "audioWaveformVertexShader", ""}) {
        delete controller;
        controller = makeController(name);
        show();
        ASSERT_NE(controller->metalKitView(), nullptr);
        EXPECT_EQ(controller->renderer(), nullptr);
        runFor(50);
        EXPECT_EQ(litPixels(), 0);
        window->hide();
    }
}

} // namespace
} // namespace kestrel
