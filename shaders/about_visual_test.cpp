#include "platform/gpu/gpu_error.hpp"
#include "platform/testing/window_testing.hpp"
#include "shaders/about_visual.hpp"
#include "shaders/quad_renderer.hpp"
#include "shaders/resource_bundle_accessor.hpp"
#include "shaders/testing/test_support.hpp"

#include <QFile>
#include <QTemporaryDir>

namespace kestrel {
namespace {

using platform::testing::runUntil;
using platform::testing::showActive;
using testing::Stage;

TEST(AboutRenderer, TellsWhyItCannotBeMade) {
    platform::GpuView empty(nullptr, nullptr);
    EXPECT_THROW(AboutRenderer{empty}, RendererError);

    // The bundle as it is, but for one file.
    Stage stage(platform::GpuApi::null);
    const QDir whole = resourceBundle().resourceDirectory();
    const QStringList files{"Images/tern-logo@1x.png", "Images/tern-noise@1x.png", "Assets.json"};
    for (const QString& missing : files + QStringList{"none"}) {
        const QTemporaryDir directory;
        ASSERT_TRUE(QDir(directory.path()).mkdir(QStringLiteral("Images")));
        for (const QString& file : files) {
            if (file != missing) {
                ASSERT_TRUE(QFile::copy(whole.filePath(file), directory.filePath(file)));
            }
        }
        const platform::Bundle bundle(QDir(directory.path()));
        if (missing == "none") {
            EXPECT_NO_THROW(AboutRenderer(stage.view, stage.clock, &bundle));
        } else {
            EXPECT_THROW(AboutRenderer(stage.view, stage.clock, &bundle), platform::GpuError)
                << missing.toStdString();
        }
    }
}

/// A black window with room for a visual, whose light is seen or not.
class AboutWindow final : public QWidget {
  public:
    AboutWindow() {
        resize(300, 220);
        QPalette black = palette();
        black.setColor(QPalette::Window, Qt::black);
        setPalette(black);
        platform::GpuHost::install(*this);
    }
    [[nodiscard]] bool isLit() const {
        return runUntil([this] {
            return testing::pixelsNot(platform::testing::screenshot(*this), Qt::black) > 2000;
        });
    }
};

TEST(AboutSampleView, StartsAnewInEverySuperview) {
    core::ManualClock clock;
    auto* const view = new AboutSampleView(clock);
    EXPECT_EQ(view->renderer(), nullptr);
    AboutWindow first;
    AboutWindow second;
    view->resize(300, 220);
    view->setParent(&first);
    ASSERT_NE(view->renderer(), nullptr);
    EXPECT_EQ(view->colorSpace(), platform::DrawableColorSpace::extendedLinearDisplayP3);
    // The window is not on the screen yet.
    EXPECT_EQ(view->renderer()->logoTexture().width(), 160 * first.devicePixelRatio());

    clock.set(core::Seconds(3));
    EXPECT_EQ(view->renderer()->time(), 3);
    showActive(first);
    EXPECT_TRUE(first.isLit());
    EXPECT_FALSE(view->isPaused());
    EXPECT_EQ(view->commandBufferLabel(), "About View Command Buffer");
    EXPECT_EQ(view->renderEncoderLabel(), "About View Render Encoder");

    showActive(second);
    view->setParent(&second);
    EXPECT_EQ(view->renderer()->time(), 0);
    EXPECT_EQ(view->renderer()->logoTexture().width(), 160 * second.devicePixelRatio());
    clock.set(core::Seconds(6));
    EXPECT_EQ(view->renderer()->time(), 3);
    EXPECT_TRUE(second.isLit());
}

TEST(AboutShaderViewController, HostsTheVisual) {
    AboutWindow window;
    core::ManualClock clock;
    auto* const container = new QWidget(&window);
    container->resize(300, 220);
    auto* const controller = new AboutShaderViewController(container, clock);
    EXPECT_EQ(controller->renderer(), nullptr);
    showActive(window);
    ASSERT_NE(controller->renderer(), nullptr);
    EXPECT_EQ(controller->metalKitView()->colorSpace(),
              platform::DrawableColorSpace::extendedLinearSRGB);
    EXPECT_EQ(controller->renderer()->logoTexture().width(), 160 * window.devicePixelRatio());
    clock.set(core::Seconds(3));
    EXPECT_TRUE(window.isLit());
    container->hide();
    EXPECT_EQ(controller->renderer(), nullptr);
}

} // namespace
} // namespace kestrel
