#include "platform/testing/window_testing.hpp"
#include "shaders/quad_renderer.hpp"
#include "shaders/supporter_visual.hpp"
#include "shaders/testing/test_support.hpp"

#include <QGuiApplication>
#include <QScreen>

namespace kestrel {
namespace {

using List = SupporterShaderRenderer::SwitchList;
using platform::testing::showActive;
using testing::Stage;

TEST(SupporterShaderRenderer, RemembersTheLatestSixEvents) {
    Stage stage(platform::GpuApi::null);
    auto& renderer = stage.show(
        std::make_unique<SupporterShaderRenderer>(stage.view, QStringLiteral("Six"), stage.clock));
    EXPECT_EQ(renderer.switchHistory(), (List{-1, -1, -1, -1, -1, -1}));
    EXPECT_EQ(renderer.switchHistoryTime(), List{});
    for (int i = 0; i < 7; ++i) {
        stage.clock.set(core::Seconds(10 + i));
        renderer.recordSwitchEvent(i % 6);
    }
    EXPECT_EQ(renderer.switchHistory(), (List{0, 5, 4, 3, 2, 1}));
    EXPECT_EQ(renderer.switchHistoryTime(), (List{16, 15, 14, 13, 12, 11}));

    // On the clock of the animation.
    renderer.pause();
    stage.clock.set(core::Seconds(116));
    renderer.resume();
    renderer.recordSwitchEvent(2);
    EXPECT_EQ(renderer.switchHistoryTime()[0], 16);

    stage.drawAt(117.25);
    EXPECT_EQ(stage.view.commandBufferLabel(), "Six Command Buffer");
    EXPECT_EQ(renderer.uniforms().scale, QGuiApplication::primaryScreen()->devicePixelRatio());
}

TEST(SupporterShaderRenderer, KnowsTheAgeOfEventsHoweverLongItRuns) {
    Stage stage(platform::GpuApi::null);
    auto& renderer =
        stage.show(std::make_unique<SupporterShaderRenderer>(stage.view, QString(), stage.clock));
    renderer.recordSwitchEvent(0);
    for (const double start :
         {4095.9, 8191.999, 1e6}) { // before the clock is folded, and long after
        stage.clock.set(core::Seconds(start));
        renderer.recordSwitchEvent(1);
        for (const double age : {0.0, 0.05, 0.2, 3.0}) {
            stage.clock.set(core::Seconds(start + age));
            const SupporterUniforms uniforms = renderer.uniforms();
            EXPECT_LT(uniforms.time, 4096);
            EXPECT_NEAR(uniforms.time - uniforms.switchHistoryTime.values[0], age, 5e-4) << start;
        }
    }
    const SupporterUniforms uniforms = renderer.uniforms();
    EXPECT_GT(uniforms.time - uniforms.switchHistoryTime.values[3], 9e5); // never young again
    EXPECT_EQ(uniforms.switchHistory.values[4], -1);
    EXPECT_EQ(uniforms.switchHistoryTime.values[4], 0);
}

TEST(SupporterShaderRenderer, ShowsEachOfItsInputs) {
    for (const platform::GpuApi api : testing::graphicsApis) {
        SCOPED_TRACE(testing::nameOf(api));
        Stage stage(api, {240, 80});
        auto& renderer = stage.show(
            std::make_unique<SupporterShaderRenderer>(stage.view, QString(), stage.clock));
        const auto brightness = [&](int sixth) {
            stage.drawAt(30);
            const QImage image = stage.view.grabFramebuffer();
            const int width = image.width() / 6;
            long sum = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = sixth * width; x < (sixth + 1) * width; ++x) {
                    sum += qGreen(image.pixel(x, y));
                }
            }
            return sum;
        };
        for (std::size_t i = 0; i < 6; ++i) {
            const int place = static_cast<int>(i);
            const long atRest = brightness(place);
            renderer.switchDownState[i] = 1;
            EXPECT_GT(brightness(place), atRest);
            renderer.switchDownState[i] = 0;
            renderer.switchOnState[i] = 1;
            const long on = brightness(place);
            EXPECT_GT(on, atRest);
            stage.clock.set(core::Seconds(29.8));
            renderer.recordSwitchEvent(place);
            EXPECT_GT(brightness(place), on);
            renderer.switchOnState[i] = 0;
        }
    }
}

class SupporterController : public ::testing::Test {
  protected:
    void SetUp() override {
        window.resize(240, 80);
        platform::GpuHost::install(window);
        container = new QWidget(&window);
        container->resize(240, 80);
        controller = new SupporterShaderViewController(container, QStringLiteral("Six"), clock);
    }
    [[nodiscard]] SupporterShaderRenderer& renderer() const { return *controller->renderer(); }

    core::ManualClock clock;
    QWidget window;
    QWidget* container = nullptr;
    SupporterShaderViewController* controller = nullptr; // owned by the container
};

TEST_F(SupporterController, SwitchesAsAsked) {
    controller->switchOn(2); // not there yet
    controller->switchDown(99);
    showActive(window);
    ASSERT_NE(controller->renderer(), nullptr);
    EXPECT_EQ(renderer().switchOnState, List{});

    clock.set(core::Seconds(5));
    controller->switchOn(2);
    controller->switchOn(2);
    EXPECT_EQ(renderer().switchOnState, (List{0, 0, 1, 0, 0, 0}));
    EXPECT_EQ(renderer().switchHistory(), (List{2, -1, -1, -1, -1, -1}));
    controller->switchOff(2);
    controller->switchOff(2);
    EXPECT_EQ(renderer().switchOnState, List{});
    EXPECT_EQ(renderer().switchHistory(), (List{2, -1, -1, -1, -1, -1}));
    clock.set(core::Seconds(7));
    controller->switchOn(2);
    EXPECT_EQ(renderer().switchHistory(), (List{2, 2, -1, -1, -1, -1}));
    EXPECT_EQ(renderer().switchHistoryTime(), (List{7, 5, 0, 0, 0, 0}));

    controller->switchDown(5);
    controller->switchDown(0);
    controller->switchUp(0);
    EXPECT_EQ(renderer().switchDownState, (List{0, 0, 0, 0, 0, 1}));

    for (const int index : {-1, 6}) {
        EXPECT_DEATH(controller->switchOn(index), "Index out of range");
        EXPECT_DEATH(controller->switchOff(index), "Index out of range");
        EXPECT_DEATH(controller->switchDown(index), "Index out of range");
        EXPECT_DEATH(controller->switchUp(index), "Index out of range");
    }
}

TEST_F(SupporterController, KeepsInitialStatesUntilTheyAreSetInSight) {
    controller->setInitialButtonStates(false, true, false, false, false, true);
    const List pending{0, 1, 0, 0, 0, 1};
    for (int i = 0; i < 2; ++i) {
        showActive(window);
        EXPECT_EQ(renderer().switchOnState, pending);
        EXPECT_EQ(renderer().switchHistory()[0], -1);
        controller->switchOn(3);
        controller->switchDown(3);
        window.close();
    }
    showActive(window);
    controller->setInitialButtonStates(true, false, false, false, false, false);
    EXPECT_EQ(renderer().switchOnState, (List{1, 0, 0, 0, 0, 0}));
    window.close();
    showActive(window);
    EXPECT_EQ(renderer().switchOnState, List{});
    EXPECT_EQ(renderer().switchHistory()[0], -1); // all else starts anew
    EXPECT_EQ(renderer().switchDownState, List{});
}

} // namespace
} // namespace kestrel
