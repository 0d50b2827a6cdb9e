#pragma once

#include "platform/gpu/gpu_view.hpp"
#include "shaders/quad_renderer.hpp"
#include "shaders/shader_view_controller.hpp"

#include <memory>

namespace kestrel {

/// The std140 block of "aboutFragmentShader".
struct AboutUniforms {
    QuadRenderer::ViewSize resolution; ///< pixels
    float time;                        ///< seconds
    float padding;
};

/// Draws the about visual: the logo in drifting light. The fragment function gets the images
/// "tern-logo" and "tern-noise" at the window's scale, or at 1.0 when the view is in no window yet.
/// Main thread.
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

/// Shows the about visual in a container view, in linear sRGB. Main thread.
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

/// The about visual as a view of its own, in linear Display P3. It shows itself and starts anew
/// whenever it gets a parent, and does not pause while its window is not key. Without a device or
/// its images it is empty. Main thread.
class AboutSampleView final : public platform::GpuView {
    Q_OBJECT

  public:
    /// Without a parent and without a renderer: both come when it is put into one.
    explicit AboutSampleView(const core::Clock& clock = core::Clock::system());
    ~AboutSampleView() override;

    /// Null as long as there is no parent, and when it could not be made.
    [[nodiscard]] AboutRenderer* renderer() const { return renderer_.get(); }

  protected:
    bool event(QEvent* event) override;

  private:
    void viewDidMoveToSuperview();

    const core::Clock& clock_;
    std::unique_ptr<AboutRenderer> renderer_;
};

} // namespace kestrel
