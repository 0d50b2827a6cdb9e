#include "shaders/metal_shader_renderer.hpp"

#include <QRandomGenerator>

namespace kestrel {

std::uint32_t systemRandom() {
    return QRandomGenerator::system()->generate();
}

MetalShaderRenderer::MetalShaderRenderer(platform::GpuView& view, const QString& name,
                                         const QString& vertexFunctionName,
                                         const QString& fragmentFunctionName,
                                         const core::Clock& clock, const RandomSource& random)
    : UniformRenderer(view,
                      {.commandBufferLabel = name.toUtf8() + " Command Buffer",
                       .vertexFunctionName = vertexFunctionName,
                       .fragmentFunctionName = fragmentFunctionName},
                      clock),
      name_(name),
      seed_(random()) {}

} // namespace kestrel
