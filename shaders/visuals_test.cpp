#include "shaders/testing/test_support.hpp"

#include <cmath>

namespace kestrel {
namespace {

using testing::Stage;
using testing::Visual;

class VisualOnDevice : public ::testing::TestWithParam<std::tuple<platform::GpuApi, Visual>> {
  protected:
    void SetUp() override { std::get<1>(GetParam()).show(stage); }

    QImage pictureAt(double seconds) {
        stage.drawAt(seconds);
        return stage.view.grabFramebuffer();
    }

    Stage stage{std::get<0>(GetParam())};
};
INSTANTIATE_TEST_SUITE_P(All, VisualOnDevice,
                         ::testing::Combine(::testing::ValuesIn(testing::graphicsApis),
                                            ::testing::ValuesIn(testing::visuals)),
                         [](const auto& test) {
                             return std::string(std::get<1>(test.param).name) + "On" +
                                    testing::nameOf(std::get<0>(test.param));
                         });

/// The mean difference of two pictures' components, in codes.
double difference(const QImage& one, const QImage& other) {
    double sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (qsizetype i = 0; i < one.bytesPerLine(); ++i) {
            sum += std::abs(one.constScanLine(y)[i] - other.constScanLine(y)[i]);
        }
    }
    return sum / static_cast<double>(one.sizeInBytes());
}

constexpr double frame = 1.0 / 60;

TEST_P(VisualOnDevice, FollowsFromTheTimeAlone) {
    const QImage first = pictureAt(20);
    const QImage later = pictureAt(21);
    EXPECT_GT(difference(first, later), 0.02);
    EXPECT_EQ(pictureAt(20), first);

    // After a pause it goes on where it has stopped.
    stage.renderer->pause();
    stage.clock.set(core::Seconds(520));
    stage.renderer->resume();
    EXPECT_EQ(pictureAt(521), later);

    const QRgb ground = stage.view.palette().color(QPalette::Window).rgb();
    for (int x = 0; x < first.width(); ++x) {
        EXPECT_EQ(first.pixel(x, 0), ground);
        EXPECT_EQ(first.pixel(x, first.height() - 1), ground);
    }
    for (int y = 0; y < first.height(); ++y) {
        EXPECT_EQ(first.pixel(0, y), ground);
        EXPECT_EQ(first.pixel(first.width() - 1, y), ground);
    }
}

// Neither the fold nor a long time makes a frame stand still or jump.
TEST_P(VisualOnDevice, MovesAsSmoothlyAfterWeeks) {
    for (const double start : {4096 - 2.5 * frame, 1e6, 2e6 + 1}) {
        std::vector<QImage> pictures;
        for (int i = 0; i < 6; ++i) {
            pictures.push_back(pictureAt(start + i * frame));
        }
        const double whole = difference(pictures.front(), pictures.back());
        EXPECT_GT(whole, 0);
        for (std::size_t i = 1; i < pictures.size(); ++i) {
            const double step = difference(pictures[i - 1], pictures[i]);
            EXPECT_GT(step, 0) << start << ", frame " << i;
            EXPECT_LT(step, 0.5 * whole + 0.05) << start << ", frame " << i;
        }
    }
}

TEST_P(VisualOnDevice, IsFiniteAtAllTimes) {
    stage.view.resize(16, 12);
    auto* const supporter = dynamic_cast<SupporterShaderRenderer*>(stage.renderer.get());
    for (int i = 0; i < 10'000; ++i) {
        // Sparse at first, then ever further apart; new events among them.
        const double time = std::pow(i / 9'999.0, 4) * 1e6;
        if (supporter != nullptr && i % 10 == 0) {
            stage.clock.set(core::Seconds(time));
            supporter->recordSwitchEvent(i / 10 % 6);
        }
        stage.drawAt(time);
        const QImage light = stage.view.grabDrawable();
        for (int y = 0; y < light.height(); ++y) {
            const auto* const components = reinterpret_cast<const float*>(light.constScanLine(y));
            for (int x = 0; x < 4 * light.width(); ++x) {
                ASSERT_TRUE(std::isfinite(components[x])) << time << " s";
            }
        }
    }
}

} // namespace
} // namespace kestrel
