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
    : QuadRenderer(view,
                   {.commandBufferLabel = name.toUtf8() + " Command Buffer",
                    .vertexFunctionName = vertexFunctionName,
                    .fragmentFunctionName = fragmentFunctionName,
                    .uniformSize = sizeof(Uniforms),
                    .textures = {}},
                   clock),
      name_(name),
      seed_(random()) {}

std::span<const std::byte> MetalShaderRenderer::uniforms() {
    uniforms_ = {viewSize(), seed_, time()};
    return std::as_bytes(std::span(&uniforms_, 1));
}

} // namespace kestrel
