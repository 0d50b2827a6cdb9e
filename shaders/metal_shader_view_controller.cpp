#include "shaders/metal_shader_view_controller.hpp"

namespace kestrel {

MetalShaderViewController::MetalShaderViewController(QWidget* view, const QString& rendererName,
                                                     const QString& vertxShaderName,
                                                     const QString& fragmentShaderName,
                                                     const core::Clock& clock)
    : RendererHost(view, clock),
      rendererName_(rendererName),
      vertxShaderName_(vertxShaderName),
      fragmentShaderName_(fragmentShaderName) {}

std::unique_ptr<QuadRenderer> MetalShaderViewController::makeRenderer(platform::GpuView& view) {
    return std::make_unique<MetalShaderRenderer>(view, rendererName_, vertxShaderName_,
                                                 fragmentShaderName_, clock());
}

} // namespace kestrel
