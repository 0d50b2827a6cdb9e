#pragma once

#include "shaders/quad_renderer.hpp"

#include <cstdint>
#include <functional>
#include <string>

namespace kestrel {

/// Gives full-range 32-bit random numbers.
using RandomSource = std::function<std::uint32_t()>;
std::uint32_t systemRandom();

/// The std140 block that the general renderer's fragment functions get.
struct MetalShaderUniforms {
    QuadRenderer::ViewSize resolution; ///< pixels
    std::uint32_t seed;
    float time; ///< seconds, folded after 4096
};

/// The general renderer: any fragment function that needs nothing but the drawable's resolution, a
/// seed drawn at creation, and the time.
class MetalShaderRenderer final : public UniformRenderer<MetalShaderUniforms> {
  public:
    /// The functions are looked up by name in this library's bundle. Throws as `QuadRenderer`
    /// does.
    MetalShaderRenderer(platform::GpuView& view, const QString& name,
                        const QString& vertexFunctionName, const QString& fragmentFunctionName,
                        const core::Clock& clock = core::Clock::system(),
                        const RandomSource& random = systemRandom);

    [[nodiscard]] const QString& name() const { return name_; }
    [[nodiscard]] std::uint32_t seed() const { return seed_; }

    [[nodiscard]] Uniforms uniforms() const override { return {viewSize(), seed_, time()}; }

  private:
    QString name_;
    std::uint32_t seed_;
};

} // namespace kestrel
