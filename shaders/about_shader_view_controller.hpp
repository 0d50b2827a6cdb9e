#pragma once

#include "shaders/about_renderer.hpp"
#include "shaders/shader_view_controller.hpp"

namespace kestrel {

/// Shows the about visual in a container view, in linear sRGB.
class AboutShaderViewController final : public RendererHost<AboutRenderer> {
    Q_OBJECT

  public:
    /// The container owns the controller.
    explicit AboutShaderViewController(QWidget* view,
                                       const core::Clock& clock = core::Clock::system())
        : RendererHost(view, clock) {}

  protected:
    std::unique_ptr<QuadRenderer> makeRenderer(platform::GpuView& view) override {
        return std::make_unique<AboutRenderer>(view, clock());
    }
};

} // namespace kestrel
