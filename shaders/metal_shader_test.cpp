#include "platform/gpu/gpu_error.hpp"
#include "shaders/metal_shader.hpp"
#include "shaders/quad_renderer.hpp"
#include "shaders/testing/test_support.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

namespace kestrel {
namespace {

using core::Seconds;

const QString vertexName = QStringLiteral("audioWaveformVertexShader");
const QString fragmentName = QStringLiteral("audioWaveformFragmentShader");

/// A renderer on a device that draws nothing.
struct Scene {
    MetalShaderOptions options{};
    core::ManualClock clock{};
    platform::GpuView view{nullptr, platform::GpuDevice::headless(platform::GpuApi::null)};
    MetalShaderRenderer renderer{
        view,  QStringLiteral("Main"),       vertexName, fragmentName, options,
        clock, [] { return 4'000'000'000U; }};
};

TEST(MetalShaderRenderer, TakesFinishedPausesOffTheTime) {
    struct Step {
        double at;
        enum { pause, resume } action;
    };
    struct Case {
        const char* name;
        std::vector<Step> steps;
        double at;
        float time;
        double period = 0;
    };
    for (const Case& test : std::vector<Case>{
             {"one pause", {{10, Step::pause}, {15, Step::resume}}, 16, 11},
             {"a second pause forgets the first",
              {{10, Step::pause}, {12, Step::pause}, {15, Step::resume}},
              16,
              13},
             {"resume without a pause", {{3, Step::resume}, {4, Step::resume}}, 16, 16},
             {"a pause is taken off once",
              {{10, Step::pause}, {15, Step::resume}, {15.5, Step::resume}},
              16,
              11},
             {"pauses add up",
              {{1, Step::pause}, {2, Step::resume}, {5, Step::pause}, {9, Step::resume}},
              16,
              11},
             {"the time goes on while it pauses", {{10, Step::pause}}, 12, 12},
             {"is not folded", {}, 3 * 4096 + 5.25, 12293.25},
             {"is folded", {}, 3 * 4096 + 5.25, 5.25, 4096},
             {"is folded after pauses are off",
              {{90, Step::pause}, {95, Step::resume}},
              4100,
              4095,
              4096},
             {"after many days", {}, 1e6 + 1.0 / 64, 576 + 1.0F / 64, 4096}}) {
        Scene scene{.options = {.period = test.period}};
        for (const Step& step : test.steps) {
            scene.clock.set(Seconds(step.at));
            step.action == Step::pause ? scene.renderer.pause() : scene.renderer.resume();
            EXPECT_EQ(scene.renderer.pauseTime.has_value(), step.action == Step::pause);
        }
        scene.clock.set(Seconds(test.at));
        EXPECT_FLOAT_EQ(scene.renderer.time(), test.time) << test.name;
    }
}

TEST(MetalShaderRenderer, TellsWhyItCannotBeMade) {
    platform::GpuView empty(nullptr, nullptr);
    try {
        const MetalShaderRenderer renderer(empty, {}, vertexName, fragmentName);
        FAIL();
    } catch (const RendererError& error) {
        EXPECT_EQ(error.error(), RendererError::Case::noValidDevice);
        EXPECT_EQ(error.localizedDescription(), QStringLiteral("No valid metal device"));
    }
    platform::GpuView view(nullptr, platform::GpuDevice::headless(platform::GpuApi::null));
    const QString none = QStringLiteral("none");
    for (const auto& [vertex, fragment] :
         {std::pair(none, fragmentName), std::pair(vertexName, none),
          std::pair(fragmentName, vertexName), std::pair(vertexName, QString())}) {
        EXPECT_THROW(MetalShaderRenderer(view, {}, vertex, fragment), platform::GpuError);
    }
}

TEST(MetalShaderRenderer, ReportsAnotherThreadInEveryBuild) {
    Scene scene;
    const auto elsewhere = [&](void (*use)(Scene&)) { std::thread(use, std::ref(scene)).join(); };
    EXPECT_DEATH(elsewhere([](Scene& s) { s.renderer.draw(s.view); }),
                 "outside of the main thread");
    EXPECT_DEATH(elsewhere([](Scene& s) {
                     s.renderer.drawableSizeWillChange(s.view, {1, 1});
                 }),
                 "outside of the main thread");
}

// That it follows from size and time alone is tested for all visuals at once.
TEST(MetalShaderRenderer, DrawsAWaveformOfItsSeed) {
    core::ManualClock clock;
    const auto device = platform::GpuDevice::headless(platform::GpuApi::openGL);
    ASSERT_NE(device, nullptr);
    const auto picture = [&](std::uint32_t seed) {
        platform::GpuView view(nullptr, device);
        view.resize(200, 150);
        clock.set(Seconds(0));
        MetalShaderRenderer renderer(view, QStringLiteral("Main"), vertexName, fragmentName, {},
                                     clock, [seed] { return seed; });
        view.setDelegate(&renderer);
        clock.set(Seconds(2));
        EXPECT_TRUE(view.drawNow());
        view.setDelegate(nullptr);
        EXPECT_EQ(view.commandBufferLabel(), QStringLiteral("Main Command Buffer"));
        return view.grabFramebuffer();
    };
    const QImage first = picture(1);
    EXPECT_NE(picture(0x8000'0001U), first); // all bits of the seed count
    EXPECT_NE(systemRandom(), systemRandom());
    EXPECT_GT(testing::pixelsNot(first, QWidget().palette().color(QPalette::Window)),
              first.width() * first.height() / 20);
}

} // namespace
} // namespace kestrel
