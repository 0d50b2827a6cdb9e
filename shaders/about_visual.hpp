#pragma once

#include "shaders/quad_renderer.hpp"

namespace kestrel {

/// The std140 block of "aboutFragmentShader".
struct AboutUniforms {
    QuadRenderer::ViewSize resolution; ///< pixels
    float time;                        ///< seconds
    float padding;
};

/// Draws the about visual: the logo in drifting light. The fragment function gets the images
/// "tern-logo" and "tern-noise" at the window's scale, or at 1.0 when the view is in no window yet.
class AboutRenderer final : public UniformRenderer<AboutUniforms> {
  public:
    /// The images are those of `bundle`, null for this library's own. Throws as `QuadRenderer`
    /// does, and `platform::GpuError` when an image is missing.
    explicit AboutRenderer(platform::GpuView& view,
                           const core::Clock& clock = core::Clock::system(),
                           const platform::Bundle* bundle = nullptr);

    [[nodiscard]] const QImage& logoTexture() const { return logoTexture_; }
    [[nodiscard]] const QImage& noiseTexture() const { return noiseTexture_; }

    [[nodiscard]] Uniforms uniforms() const override { return {viewSize(), time(), 0}; }

  private:
    AboutRenderer(platform::GpuView& view, const core::Clock& clock,
                  const std::array<QImage, 2>& textures);

    QImage logoTexture_;
    QImage noiseTexture_;
};

} // namespace kestrel
