#include "platform/gpu/gpu_error.hpp"
#include "platform/gpu/gpu_view.hpp"
#include "platform/gpu/quad_pipeline.hpp"
#include "platform/testing/failing_device.hpp"
#include "platform/testing/light.hpp"
#include "platform/testing/test_cells.hpp"
#include "platform/testing/window_testing.hpp"

#include <QColorSpace>
#include <QColorTransform>
#include <QPalette>

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <set>

namespace platform {
namespace {

using testing::cellCentre;
using testing::CellPainter;
using ::testing::ElementsAre;
using testing::FailingDevice;
using testing::Light;
using testing::toLinear;

const QColor ground(0x15, 0x51, 0x9f);

double toCode(double linear) {
    return 255 * testing::toCode(linear);
}

/// A view on a device of its own, with cells in it.
struct Scene {
    explicit Scene(GpuApi api, QSize size = {160, 40})
        : device(makeDevice(api)), view(nullptr, device) {
        QPalette palette = view.palette();
        palette.setColor(QPalette::Window, ground);
        view.setPalette(palette);
        view.resize(size);
        painter.emplace(view);
        view.setDelegate(&*painter);
    }
    ~Scene() { view.setDelegate(nullptr); }

    QColor encoded(std::size_t cell) {
        const QImage image = view.grabFramebuffer();
        return image.pixelColor(cellCentre(cell, image.size()));
    }

    static std::shared_ptr<FailingDevice> makeDevice(GpuApi api) {
        const auto real = GpuDevice::headless(api);
        if (real == nullptr) {
            throw std::runtime_error("this machine lacks a device that the tests need");
        }
        return std::make_shared<FailingDevice>(*real);
    }

    std::shared_ptr<FailingDevice> device;
    GpuView view;
    std::optional<CellPainter> painter;
};

class GpuViewOnDevice : public ::testing::TestWithParam<GpuApi> {};
INSTANTIATE_TEST_SUITE_P(Devices, GpuViewOnDevice,
                         ::testing::Values(GpuApi::openGL, GpuApi::vulkan), [](const auto& api) {
                             return api.param == GpuApi::openGL ? "OpenGL" : "Vulkan";
                         });

MATCHER_P(IsCloseTo, wanted, "") {
    for (int i = 0; i < 3; ++i) {
        const int code = i == 0 ? arg.red() : i == 1 ? arg.green() : arg.blue();
        if (std::abs(code - wanted[static_cast<std::size_t>(i)]) > 1) {
            *result_listener << "it is " << arg.name().toStdString();
            return false;
        }
    }
    return true;
}

TEST_P(GpuViewOnDevice, EncodesLinearLightOverTheGround) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    Scene scene(GetParam());
    scene.painter->cells = {{{0, 0, 0, 0},
                             {0, 0, 0, 1},
                             {0.18F, 0.5F, 0.002F, 1},
                             {1.5F, 40.0F, 1.0F, 1},
                             {-0.5F, -40.0F, 0.3F, 1},
                             {0.1F, 0.2F, 0.05F, 0.5F}, // premultiplied: half of the ground
                             {0.1F, 0.0F, 0.2F, 0},     // pure addition
                             {infinity, 0.25F, -infinity, 1},
                             {0.0031F, 0.0032F, 0.9F, 1},
                             {-0.05F, 0.01F, 0, 0}, // takes light off the ground
                             {1e-6F, 0, 0, 0},
                             {0, 0, 0, 0.25F},
                             {0.3F, 0.3F, 0.3F, 2.0F}, // more than opaque
                             {0.3F, 0.3F, 0.3F, -1.0F},
                             {6e4F, 6e4F, 6e4F, 0},
                             {0, 0, 0, 0}}};
    ASSERT_TRUE(scene.view.drawNow());

    const std::array<double, 3> below{toLinear(ground.redF()), toLinear(ground.greenF()),
                                      toLinear(ground.blueF())};
    for (std::size_t cell = 0; cell < 16; ++cell) {
        const Light& light = scene.painter->cells[cell];
        std::array<double, 3> wanted{};
        for (std::size_t i = 0; i < 3; ++i) {
            wanted[i] = toCode(light[i] + (1 - std::clamp<double>(light[3], 0, 1)) * below[i]);
        }
        EXPECT_THAT(scene.encoded(cell), IsCloseTo(wanted)) << "cell " << cell;
    }
    EXPECT_EQ(scene.encoded(0), ground);
    EXPECT_EQ(scene.encoded(15), ground);
}

TEST_P(GpuViewOnDevice, ConvertsDisplayP3) {
    Scene scene(GetParam());
    scene.view.setColorSpace(DrawableColorSpace::extendedLinearDisplayP3);
    auto& cells = scene.painter->cells;
    cells = {{{0.5F, 0.4F, 0.3F, 1}, {0.2F, 0.25F, 0.2F, 1}, {0.05F, 0.05F, 0.06F, 1}}};
    cells[3] = {1, 0, 0, 1};
    cells[4] = {0, 1, 0, 1};
    cells[5] = {0.7F, 0.7F, 0.7F, 1};
    ASSERT_TRUE(scene.view.drawNow());

    const QColorTransform toSRGB =
        QColorSpace(QColorSpace::DisplayP3).transformationToColorSpace(QColorSpace::SRgb);
    for (const std::size_t cell : {0U, 1U, 2U, 5U}) { // inside of what sRGB can show
        const auto code = [&](std::size_t i) {
            return static_cast<float>(toCode(cells[cell][i]) / 255);
        };
        const QColor reference = toSRGB.map(QColor::fromRgbF(code(0), code(1), code(2)));
        const std::array<double, 3> wanted{255 * reference.redF(), 255 * reference.greenF(),
                                           255 * reference.blueF()};
        EXPECT_THAT(scene.encoded(cell), IsCloseTo(wanted)) << "cell " << cell;
    }
    EXPECT_THAT(scene.encoded(3), IsCloseTo(std::array<double, 3>{255, 0, 0}));
    EXPECT_THAT(scene.encoded(4), IsCloseTo(std::array<double, 3>{0, 255, 0}));
}

TEST_P(GpuViewOnDevice, AppliesAShaderLast) {
    const Shader swapped{testing::testLibrary(), QStringLiteral("swapped"), {}};
    const auto withArgument = [&](const Float4& added) {
        Shader shader = swapped;
        shader.arguments = {added};
        return shader;
    };
    Scene scene(GetParam());
    auto& cells = scene.painter->cells;
    cells[1] = {1, 0, 0, 1};
    cells[15] = {0, 0.25F, 1.5F, 1};
    const auto shows = [&](const QColor& first, const QColor& last) {
        ASSERT_TRUE(scene.view.drawNow());
        EXPECT_EQ(scene.encoded(1), first);
        EXPECT_EQ(scene.encoded(15), last);
        EXPECT_EQ(scene.encoded(0), ground);
    };
    const QColor between(0, 137, 255);
    shows(Qt::red, between);
    scene.view.setShader(swapped);
    shows(Qt::blue, QColor(255, 137, 0));
    scene.view.resize(240, 60);
    shows(Qt::blue, QColor(255, 137, 0));

    scene.view.setShader(withArgument({0, 1, 0, 1}));
    ASSERT_TRUE(scene.view.drawNow());
    EXPECT_EQ(scene.encoded(1), QColor(Qt::cyan));
    EXPECT_EQ(scene.encoded(0), QColor(Qt::green));

    // It gets sRGB whatever the drawable holds.
    cells[1] = {1, 0, 0, 1};
    scene.view.setColorSpace(DrawableColorSpace::extendedLinearDisplayP3);
    scene.view.setShader(withArgument({0.0196376F, 0.0420569F, -0.2249401F, 0}));
    ASSERT_TRUE(scene.view.drawNow());
    EXPECT_EQ(scene.encoded(1), QColor(Qt::blue));
    scene.view.setColorSpace(DrawableColorSpace::extendedLinearSRGB);

    // What cannot be applied changes nothing.
    for (const char* const name : {"none", "quad"}) {
        Shader unknown = swapped;
        unknown.functionName = QString::fromLatin1(name);
        scene.view.setShader(unknown);
        shows(Qt::red, between);
    }
    scene.view.setShader(swapped);
    scene.device->setOutcome([](int operation) { // everything is made anew
        return operation == 0 ? FrameResult::deviceLost : FrameResult::success;
    });
    scene.view.drawNow();
    shows(Qt::blue, QColor(255, 137, 0));
    scene.view.setShader({});
    shows(Qt::red, between);
}

TEST_P(GpuViewOnDevice, DithersBetweenTwoCodes) {
    Scene scene(GetParam());
    const auto between = static_cast<float>(toLinear(60.5 / 255));
    scene.painter->cells[0] = {between, between, between, 1};
    ASSERT_TRUE(scene.view.drawNow());
    const QImage image = scene.view.grabFramebuffer();
    std::set<int> codes;
    double sum = 0;
    int count = 0;
    for (int y = 2; y < image.height() / 2 - 2; ++y) {
        for (int x = 2; x < image.width() / 8 - 2; ++x, ++count) {
            codes.insert(image.pixelColor(x, y).green());
            sum += image.pixelColor(x, y).green();
        }
    }
    EXPECT_THAT(codes, ElementsAre(60, 61));
    EXPECT_NEAR(sum / count, 60.5, 0.15);
}

TEST_P(GpuViewOnDevice, FollowsItsSize) {
    Scene scene(GetParam(), {160, 40});
    scene.painter->cells.fill({0, 1, 0, 1});
    scene.painter->cells[15] = {0, 0, 1, 1};
    const double scale = scene.view.devicePixelRatio();
    std::vector<QSize> wanted;
    for (const QSize size : {QSize(160, 40), QSize(320, 20), QSize(8, 90), QSize(160, 40)}) {
        scene.view.resize(size);
        ASSERT_TRUE(scene.view.drawNow());
        ASSERT_TRUE(scene.view.drawNow());
        EXPECT_EQ(scene.encoded(0), QColor(Qt::green));
        EXPECT_EQ(scene.encoded(15), QColor(Qt::blue));
        wanted.push_back((QSizeF(size) * scale).toSize());
        EXPECT_EQ(scene.view.grabFramebuffer().size(), wanted.back());
    }
    EXPECT_EQ(scene.painter->sizes, wanted); // each once
}

// What the device refuses, again and again, must end in the empty view and not in a crash.
TEST_P(GpuViewOnDevice, GivesUpOnADrawableThatIsTooLarge) {
    Scene scene(GetParam());
    scene.view.resize(100'000, 2);
    for (int i = 0; i < 8; ++i) {
        EXPECT_FALSE(scene.view.drawNow());
    }
    EXPECT_TRUE(scene.view.isEmpty());
    EXPECT_TRUE(scene.view.grabFramebuffer().isNull());
}

TEST_P(GpuViewOnDevice, SurvivesFailedFrames) {
    struct Case {
        FrameResult result;
        int first; // frame operation that fails, counted from 0; two make a frame
        int last;
        bool isEmpty;
    };
    constexpr int always = 1000;
    for (const Case& test :
         {Case{FrameResult::error, 0, 0, false}, Case{FrameResult::error, 1, 1, false},
          Case{FrameResult::error, 2, 3, false}, Case{FrameResult::deviceLost, 0, 0, false},
          Case{FrameResult::deviceLost, 3, 3, false}, Case{FrameResult::deviceLost, 2, 4, false},
          Case{FrameResult::error, 2, always, true},
          Case{FrameResult::deviceLost, 3, always, true}}) {
        SCOPED_TRACE(::testing::Message() << "from " << test.first << " to " << test.last);
        Scene scene(GetParam());
        scene.painter->cells.fill({0, 1, 0, 1});
        scene.device->setOutcome([&](int operation) {
            const bool isOne = operation >= test.first && operation <= test.last;
            return isOne ? test.result : FrameResult::success;
        });
        int drawn = 0;
        for (int i = 0; i < 12; ++i) {
            drawn += scene.view.drawNow() ? 1 : 0;
        }
        EXPECT_EQ(scene.view.isEmpty(), test.isEmpty);
        EXPECT_EQ(scene.view.frameCount(), drawn);
        if (test.isEmpty) {
            EXPECT_LE(drawn, 1);
            EXPECT_TRUE(scene.view.grabFramebuffer().isNull());
        } else {
            EXPECT_GE(drawn, 8);
            EXPECT_EQ(scene.encoded(0), QColor(Qt::green));
        }
    }
}

TEST(GpuView, WithoutDelegateShowsTheGround) {
    Scene scene(GpuApi::openGL);
    scene.view.setDelegate(nullptr);
    scene.view.drawNow();
    EXPECT_EQ(scene.encoded(3), ground);
}

TEST(QuadPipeline, NeedsBothFunctionsInTheirPlaces) {
    const auto device = GpuDevice::headless(GpuApi::openGL);
    ASSERT_NE(device, nullptr);
    GpuView view(nullptr, device);
    const ShaderLibrary library = testing::testLibrary();
    const auto function = [&](const char* name) {
        return library.function(QString::fromLatin1(name));
    };
    struct Case {
        const char* vertex;
        const char* fragment;
    };
    for (const auto& [vertex, fragment] :
         {Case{"none", "cells"}, Case{"quad", "none"}, Case{"cells", "quad"}, Case{"quad", "quad"},
          Case{"quad", "mismatched"}}) {
        EXPECT_THROW(QuadPipeline(view, {"", function(vertex), function(fragment), 16 * 16, {}}),
                     GpuError)
            << vertex << ", " << fragment;
    }
    // What could not be made has left nothing behind in the view.
    CellPainter painter(view);
    view.setDelegate(&painter);
    EXPECT_TRUE(view.drawNow());
    view.setDelegate(nullptr);
}

TEST(QuadPipeline, MayOutliveItsView) {
    const auto device = GpuDevice::headless(GpuApi::openGL);
    auto view = std::make_unique<GpuView>(nullptr, device);
    const auto painter = std::make_unique<CellPainter>(*view);
    view->setDelegate(&*painter);
    EXPECT_TRUE(view->drawNow());
    view.reset();
}

} // namespace
} // namespace platform
