#pragma once

#include "shaders/quad_renderer.hpp"
#include "shaders/shader_view_controller.hpp"

#include <QString>
#include <QWidget>

#include <cstdint>
#include <functional>

namespace kestrel {

/// Gives full-range 32-bit random numbers; called on the main thread.
using RandomSource = std::function<std::uint32_t()>;
/// The system's. Any thread.
std::uint32_t systemRandom();

/// The std140 block that the general renderer's fragment functions get.
struct MetalShaderUniforms {
    QuadRenderer::ViewSize resolution; ///< pixels
    std::uint32_t seed;
    float time; ///< seconds, folded where the renderer has a period
};

/// What may be chosen beside the names of the two functions. A plain value.
struct MetalShaderOptions {
    /// Where the functions are looked up before this library's own bundle; read whenever a renderer
    /// is made.
    const platform::Bundle* bundle = nullptr;
    /// Seconds after which the visual repeats, so that its time may be folded there; 0: never.
    double period = 0;
};

/// The general renderer: any fragment function that needs nothing but the drawable's resolution, a
/// seed drawn at creation, and the time. Main thread.
class MetalShaderRenderer final : public UniformRenderer<MetalShaderUniforms> {
  public:
    /// Throws as `QuadRenderer` does.
    MetalShaderRenderer(platform::GpuView& view, const QString& name,
                        const QString& vertexFunctionName, const QString& fragmentFunctionName,
                        const MetalShaderOptions& options = {},
                        const core::Clock& clock = core::Clock::system(),
                        const RandomSource& random = systemRandom);

    [[nodiscard]] const QString& name() const { return name_; }
    [[nodiscard]] std::uint32_t seed() const { return seed_; }

    [[nodiscard]] Uniforms uniforms() const override { return {viewSize(), seed_, time()}; }

  private:
    QString name_;
    std::uint32_t seed_;
};

/// Shows a `MetalShaderRenderer` with two functions, by their names, in a container view.
/// Main thread.
class MetalShaderViewController final : public RendererHost<MetalShaderRenderer> {
    Q_OBJECT

  public:
    /// The container owns the controller.
    MetalShaderViewController(QWidget* view, const QString& rendererName,
                              const QString& vertxShaderName, const QString& fragmentShaderName,
                              const MetalShaderOptions& options = {},
                              const core::Clock& clock = core::Clock::system());

    [[nodiscard]] const QString& rendererName() const { return rendererName_; }
    [[nodiscard]] const QString& vertxShaderName() const { return vertxShaderName_; }
    [[nodiscard]] const QString& fragmentShaderName() const { return fragmentShaderName_; }

  protected:
    std::unique_ptr<QuadRenderer> makeRenderer(platform::GpuView& view) override;

  private:
    QString rendererName_;
    QString vertxShaderName_;
    QString fragmentShaderName_;
    MetalShaderOptions options_;
};

/// The animated waveform behind the product's name, as a widget that fills whatever slot it is
/// given. It pauses while its window is not key. Without a GPU it is empty. Main thread.
class ContentViewShader final : public QWidget {
    Q_OBJECT

  public:
    explicit ContentViewShader(QWidget* parent = nullptr);

    [[nodiscard]] MetalShaderViewController& controller() const { return *controller_; }

    /// Asks for one more frame, also while the animation pauses. Called whenever something changes
    /// that the view is shown with, such as its palette.
    void updateView();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    MetalShaderViewController* controller_; // owned by this widget
};

} // namespace kestrel
