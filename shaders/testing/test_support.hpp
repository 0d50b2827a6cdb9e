#pragma once

// What the tests of this library share.

#include "platform/gpu/gpu_view.hpp"
#include "shaders/about_visual.hpp"
#include "shaders/metal_shader.hpp"
#include "shaders/supporter_visual.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace kestrel::testing {

/// The functions and images that only the tests have.
inline const platform::Bundle& testBundle() {
    static const platform::Bundle bundle(QDir(QStringLiteral(KESTREL_TEST_BUNDLE)));
    return bundle;
}

/// A view on a device of its own, and a clock.
struct Stage {
    explicit Stage(platform::GpuApi api, QSize size = {96, 72})
        : view(nullptr, platform::GpuDevice::headless(api)) {
        if (view.device() == nullptr) {
            throw std::runtime_error("this machine lacks a device that the tests need");
        }
        view.resize(size);
    }
    ~Stage() { view.setDelegate(nullptr); }

    /// Takes a renderer that was made on this stage.
    template<class Renderer>
    Renderer& show(std::unique_ptr<Renderer> made) {
        Renderer& shown = *made;
        renderer = std::move(made);
        view.setDelegate(renderer.get());
        return shown;
    }
    void drawAt(double seconds) {
        clock.set(core::Seconds(seconds));
        ASSERT_TRUE(view.drawNow());
    }

    core::ManualClock clock;
    platform::GpuView view;
    std::unique_ptr<QuadRenderer> renderer;
};

/// One of the library's visuals, for tests that hold for all of them.
struct Visual {
    const char* name;
    void (*show)(Stage& stage);
};

inline const std::array<Visual, 3> visuals{
    {{"Waveform",
      [](Stage& stage) {
          stage.show(std::make_unique<MetalShaderRenderer>(
              stage.view, QString(), QStringLiteral("audioWaveformVertexShader"),
              QStringLiteral("audioWaveformFragmentShader"),
              MetalShaderOptions{.period = familyPeriod}, stage.clock, [] { return 7U; }));
      }},
     {"About",
      [](Stage& stage) { stage.show(std::make_unique<AboutRenderer>(stage.view, stage.clock)); }},
     {"Supporter", [](Stage& stage) {
          auto& renderer = stage.show(
              std::make_unique<SupporterShaderRenderer>(stage.view, QString(), stage.clock));
          renderer.switchOnState = {0, 1, 0, 1, 0, 0};
          renderer.switchDownState = {1, 0, 0, 1, 0, 0};
          renderer.recordSwitchEvent(3);
      }}}};

/// How many pixels are not of the ground's colour.
inline int pixelsNot(const QImage& image, const QColor& ground) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixel(x, y) != ground.rgb() ? 1 : 0;
        }
    }
    return count;
}

inline constexpr std::array graphicsApis{platform::GpuApi::openGL, platform::GpuApi::vulkan};
inline const char* nameOf(platform::GpuApi api) {
    return api == platform::GpuApi::openGL ? "OpenGL" : "Vulkan";
}

} // namespace kestrel::testing
