#pragma once

#include "shaders/metal_shader_renderer.hpp"
#include "shaders/shader_view_controller.hpp"

#include <QString>

namespace kestrel {

/// Shows a `MetalShaderRenderer` with two functions of this library's bundle in a container view.
class MetalShaderViewController final : public RendererHost<MetalShaderRenderer> {
    Q_OBJECT

  public:
    /// The container owns the controller.
    MetalShaderViewController(QWidget* view, const QString& rendererName,
                              const QString& vertxShaderName, const QString& fragmentShaderName,
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
};

} // namespace kestrel
