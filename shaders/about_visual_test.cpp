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

TEST(AboutRenderer, KnowsItsInputs) {
    Stage stage(platform::GpuApi::null, {40, 20});
    auto& renderer = stage.show(std::make_unique<AboutRenderer>(stage.view, stage.clock));
    stage.drawAt(12);
    EXPECT_EQ(renderer.uniforms().time, 12);
    const auto scale = static_cast<float>(stage.view.devicePixelRatio());
    EXPECT_EQ(renderer.uniforms().resolution, (QuadRenderer::ViewSize{40 * scale, 20 * scale}));
    EXPECT_EQ(stage.view.commandBufferLabel(), "About View Command Buffer");
    EXPECT_EQ(stage.view.renderEncoderLabel(), "About View Render Encoder");
    // In no window yet.
    const platform::AssetCatalog& assets = resourceBundle().assets();
    EXPECT_EQ(renderer.logoTexture(), assets.image(QStringLiteral("tern-logo"))->image(1));
    EXPECT_EQ(renderer.noiseTexture(), assets.image(QStringLiteral("tern-noise"))->image(1));
}

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

/// Light of the logo on the screen.
bool isLit(const QWidget& view) {
    const QImage image = platform::testing::screenshot(view);
    int lit = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            lit += qBlue(image.pixel(x, y)) > 80 ? 1 : 0;
        }
    }
    return lit > image.width() * image.height() / 100;
}

TEST(AboutSampleView, StartsAnewInEverySuperview) {
    core::ManualClock clock;
    auto* const view = new AboutSampleView(clock);
    EXPECT_EQ(view->renderer(), nullptr);
    QWidget first;
    QWidget second;
    for (QWidget* const window : {&first, &second}) {
        window->resize(300, 220);
        QPalette palette = window->palette();
        palette.setColor(QPalette::Window, Qt::black);
        window->setPalette(palette);
        platform::GpuHost::install(*window);
    }
    view->resize(300, 220);
    view->setParent(&first);
    ASSERT_NE(view->renderer(), nullptr);
    EXPECT_EQ(view->colorSpace(), platform::DrawableColorSpace::extendedLinearDisplayP3);
    // The window is not on the screen yet.
    EXPECT_EQ(view->renderer()->logoTexture().width(), 160 * first.devicePixelRatio());

    clock.set(core::Seconds(3));
    EXPECT_EQ(view->renderer()->time(), 3);
    showActive(first);
    EXPECT_TRUE(runUntil([&] { return isLit(*view); }));
    EXPECT_FALSE(view->isPaused());

    showActive(second);
    view->setParent(&second);
    EXPECT_EQ(view->renderer()->time(), 0);
    EXPECT_EQ(view->renderer()->logoTexture().width(), 160 * second.devicePixelRatio());
    clock.set(core::Seconds(6));
    EXPECT_EQ(view->renderer()->time(), 3);
    EXPECT_TRUE(runUntil([&] { return isLit(*view); }));
}

TEST(AboutShaderViewController, HostsTheVisual) {
    QWidget window;
    window.resize(300, 220);
    platform::GpuHost::install(window);
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
    EXPECT_TRUE(runUntil([&] { return isLit(*container); }));
    container->hide();
    EXPECT_EQ(controller->renderer(), nullptr);
}

} // namespace
} // namespace kestrel
