#include "platform/gpu/shade_image.hpp"
#include "platform/gpu/shader_effect.hpp"
#include "platform/testing/light.hpp"
#include "platform/testing/window_testing.hpp"
#include "shaders/kestrel_shaders_helper.hpp"
#include "shaders/testing/test_support.hpp"

#include <QLabel>

#include <algorithm>
#include <cmath>
#include <optional>

namespace kestrel {
namespace {

using platform::Float4;
using platform::GpuApi;
using platform::Shader;
using platform::testing::largestDifference;
using platform::testing::toCode;
using platform::testing::toLinear;
using testing::Stage;
using Light = std::array<double, 4>; ///< linear, premultiplied

// What the functions should do, in double precision.

/// The product of the primaries' matrices, as the standards of both give them.
Light toDisplayP3(const Light& light) {
    const std::array<Light, 3> rows{{{0.82246197, 0.17753803, 0, 0},
                                     {0.03319420, 0.96680580, 0, 0},
                                     {0.01708263, 0.07239744, 0.91051993, 0}}};
    Light result = light;
    for (std::size_t i = 0; i < 3; ++i) {
        result[i] = rows[i][0] * light[0] + rows[i][1] * light[1] + rows[i][2] * light[2];
    }
    return result;
}

/// By how much the furthest component of an opaque colour leaves 0 … 1.
double excess(const Light& light) {
    const auto [low, high] = std::minmax({light[0], light[1], light[2]});
    return std::max(-low, high - 1);
}

Light multiplied(const std::vector<Float4>& rows, const Light& light) {
    Light result{};
    for (std::size_t i = 0; i < 4; ++i) {
        for (std::size_t k = 0; k < 4; ++k) {
            result[i] += static_cast<double>(rows[i][k]) * light[k];
        }
    }
    return result;
}

Shader matrix(const std::vector<Float4>& rows) {
    return KestrelShadersHelper::colorMatrixShader(rows[0], rows[1], rows[2], rows[3]);
}

const std::vector<std::vector<Float4>> matrices{
    {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}},
    {{0.21F, 0.72F, 0.07F, 0}, {0.21F, 0.72F, 0.07F, 0}, {0.21F, 0.72F, 0.07F, 0}, {0, 0, 0, 1}},
    {{1.6F, -0.4F, 0, 0.05F}, {-0.2F, 1.3F, 0.1F, 0}, {0, 0.5F, -1, 0.6F}, {0, 0, 0, 1}},
    {{-1, 0, 0, 1}, {0, -1, 0, 1}, {0, 0, -1, 1}, {0, 0, 0, 1}},
    {{0.3F, 0, 0, 0}, {0, 0.3F, 0, 0}, {0, 0, 0.3F, 0}, {0, 0, 0, 0.5F}},
    {{0, 0, 1, 0}, {1, 0, 0, 0}, {0, 1, 0, 0}, {0.5F, 0, 0, 0.5F}},
};

/// Colours of all kinds, and every grey.
QImage testImage(bool isOpaque) {
    QImage image(64, 48, QImage::Format_ARGB32_Premultiplied);
    quint32 word = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            word = word * 1664525U + 1013904223U;
            const int alpha = isOpaque || y % 3 == 0 ? 255 : static_cast<int>(word >> 24U);
            const int grey = (x + 64 * y) % 256;
            image.setPixel(x, y,
                           y < 4
                               ? qRgb(grey, grey, grey)
                               : qPremultiply(qRgba(static_cast<int>(word >> 8U & 255U),
                                                    static_cast<int>(word >> 13U & 255U),
                                                    static_cast<int>(word >> 18U & 255U), alpha)));
        }
    }
    return image;
}

struct PictureUniforms {
    QuadRenderer::ViewSize resolution;
    std::array<float, 2> padding;
};

/// Shows an image pixel for pixel.
class PictureRenderer final : public UniformRenderer<PictureUniforms> {
  public:
    PictureRenderer(platform::GpuView& view, const QImage& image)
        : UniformRenderer(view,
                          {.fragmentFunctionName = QStringLiteral("picture"),
                           .textures = {image},
                           .bundle = &testing::testBundle()},
                          core::Clock::system()) {}
    [[nodiscard]] Uniforms uniforms() const override { return {viewSize(), {}}; }
};

TEST(ColorMatrix, IsThatOnTheProcessor) {
    const QImage before = testImage(false);
    for (std::size_t m = 0; m < matrices.size(); ++m) {
        QImage after = before;
        platform::shadeImage(after, matrix(matrices[m]));
        if (m == 0) {
            EXPECT_EQ(after, before); // the identity changes nothing at all
        }
        double largest = 0;      // of opaque pixels
        double largestBelow = 0; // of others, which hold their colour less exactly
        for (int y = 0; y < before.height(); ++y) {
            for (int x = 0; x < before.width(); ++x) {
                const QRgb pixel = reinterpret_cast<const QRgb*>(before.constScanLine(y))[x];
                const double alpha = qAlpha(pixel) / 255.0;
                Light light{0, 0, 0, alpha};
                const std::array<int, 3> codes{qRed(pixel), qGreen(pixel), qBlue(pixel)};
                for (std::size_t i = 0; alpha > 0 && i < 3; ++i) {
                    light[i] = alpha * toLinear(codes[i] / 255.0 / alpha);
                }
                light = multiplied(matrices[m], light);
                light[3] = std::clamp(light[3], 0.0, 1.0);
                const QRgb shaded = reinterpret_cast<const QRgb*>(after.constScanLine(y))[x];
                const std::array<int, 4> seen{qRed(shaded), qGreen(shaded), qBlue(shaded),
                                              qAlpha(shaded)};
                double& worst = alpha == 1 ? largest : largestBelow;
                worst = std::max(worst, std::abs(seen[3] - 255 * light[3]));
                for (std::size_t i = 0; light[3] > 0 && i < 3; ++i) {
                    const double wanted = 255 * light[3] * toCode(light[i] / light[3]);
                    worst = std::max(worst, std::abs(seen[i] - wanted));
                }
            }
        }
        EXPECT_LE(largest, 0.65) << "matrix " << m;
        EXPECT_LE(largestBelow, 2) << "matrix " << m;
    }
}

TEST(ColorShaders, ShowTheSameOnBothPaths) {
    const QImage picture = testImage(true);
    std::vector<Shader> shaders{KestrelShadersHelper::outsideSRGBShader(),
                                KestrelShadersHelper::outsideP3Shader()};
    std::ranges::transform(matrices, std::back_inserter(shaders), matrix);
    for (const GpuApi api : testing::graphicsApis) {
        Stage stage(api);
        const double scale = stage.view.devicePixelRatio();
        stage.view.resize((QSizeF(picture.size()) / scale).toSize());
        QPalette black;
        black.setColor(QPalette::Window, Qt::black);
        stage.view.setPalette(black);
        stage.show(std::make_unique<PictureRenderer>(stage.view, picture));
        stage.drawAt(0);
        EXPECT_LE(largestDifference(stage.view.grabFramebuffer(), picture), 1);
        for (const Shader& shader : shaders) {
            stage.view.setShader(shader);
            stage.drawAt(0);
            QImage onProcessor = picture;
            platform::shadeImage(onProcessor, shader);
            // Translucent light is laid over the ground, which is no matter of the shader.
            if (shader.arguments.empty() || shader.arguments[3] == Float4{0, 0, 0, 1}) {
                EXPECT_LE(largestDifference(stage.view.grabFramebuffer(), onProcessor), 1)
                    << testing::nameOf(api) << ", " << shader.functionName.toStdString();
            }
        }
    }
}

QImage shadedPicture(Stage& stage, std::optional<Shader> shader) {
    stage.view.setShader(std::move(shader));
    stage.drawAt(0);
    return stage.view.grabFramebuffer();
}

TEST(OutsideShaders, MarkExactlyTheColoursOutside) {
    struct Case {
        Shader shader;
        QRgb marker;
        bool isP3;
    };
    for (const GpuApi api : testing::graphicsApis) {
        Stage stage(api, {160, 120});
        stage.show(std::make_unique<MetalShaderRenderer>(
            stage.view, QString(), QStringLiteral("audioWaveformVertexShader"),
            QStringLiteral("wideGamutFragmentShader"), MetalShaderOptions{}, stage.clock));
        const QImage plain = shadedPicture(stage, {});
        for (const auto& [shader, marker, isP3] :
             {Case{KestrelShadersHelper::outsideSRGBShader(), qRgb(0xff, 0x9a, 0x4a), false},
              Case{KestrelShadersHelper::outsideP3Shader(), qRgb(0xff, 0x4d, 0x6a), true}}) {
            const QImage shaded = shadedPicture(stage, shader);
            const QImage light = stage.view.grabDrawable();
            std::size_t inside = 0;
            std::size_t outside = 0;
            for (int y = 0; y < light.height(); ++y) {
                const auto* const row = reinterpret_cast<const float*>(light.constScanLine(y));
                for (int x = 0; x < light.width(); ++x) {
                    const float* const rgb = row + 4 * x;
                    const Light color{rgb[0], rgb[1], rgb[2], 1};
                    const double beyond = excess(isP3 ? toDisplayP3(color) : color);
                    const QRgb seen = shaded.pixel(x, y);
                    // Between the two lies what a 16-bit float may have rounded off.
                    if (beyond <= 0) {
                        ++inside;
                        ASSERT_LE(largestDifference(seen, plain.pixel(x, y)), 1)
                            << x << ", " << y << ": " << beyond;
                    } else if (beyond > 0.004) {
                        ++outside;
                        ASSERT_LE(largestDifference(seen, marker), 1)
                            << x << ", " << y << ": " << beyond;
                    }
                }
            }
            const auto all = static_cast<std::size_t>(light.width() * light.height());
            EXPECT_GT(inside, all / 5);
            EXPECT_GT(outside, all / 5);
            EXPECT_GT(inside + outside, all * 97 / 100);
        }
    }
}

TEST(OutsideShaders, KeepWhatTheRangesHold) {
    const auto shaded = [](const Shader& shader, Light light) {
        platform::LightRow row{};
        row.red.fill(static_cast<float>(light[0]));
        row.green.fill(static_cast<float>(light[1]));
        row.blue.fill(static_cast<float>(light[2]));
        row.alpha.fill(static_cast<float>(light[3]));
        shader.onProcessor(row, shader.paddedArguments());
        return std::array{row.red[9], row.green[9], row.blue[9], row.alpha[9]};
    };
    const Shader srgb = KestrelShadersHelper::outsideSRGBShader();
    const Shader p3 = KestrelShadersHelper::outsideP3Shader();
    struct Case {
        Light light;
        bool isOutsideSRGB;
        bool isOutsideP3;
    };
    for (const Case& test :
         {Case{{1, 1, 1, 1}, false, false}, Case{{0, 0, 0, 1}, false, false},
          Case{{0, 0, 0, 0}, false, false},
          Case{{1.2249, -0.0420, -0.0196, 1}, true, false}, // the red of P3
          Case{{-0.2249, 1.0420, -0.0786, 1}, true, false}, // its green
          Case{{1.3, 1.3, 1.3, 1}, true, true}, Case{{-0.01, 0.4, 0.4, 1}, true, false},
          Case{{-0.3, 0.4, 0.4, 1}, true, true},
          Case{{0.5, 0.2, 0.1, 0.5}, false, false}, // half covered
          Case{{0.6, 0.6, 0.6, 0.5}, true, true},
          Case{{0.9, 0.2, 0.5, 0}, false, false}, // light alone
          Case{{3, 0.2, 0.5, 0}, true, true}}) {
        const auto kept =
            std::array{static_cast<float>(test.light[0]), static_cast<float>(test.light[1]),
                       static_cast<float>(test.light[2]), static_cast<float>(test.light[3])};
        EXPECT_EQ(shaded(srgb, test.light) != kept, test.isOutsideSRGB) << test.light[0];
        EXPECT_EQ(shaded(p3, test.light) != kept, test.isOutsideP3) << test.light[0];
        EXPECT_EQ(shaded(srgb, test.light)[3], kept[3]);
    }
}

} // namespace
} // namespace kestrel
