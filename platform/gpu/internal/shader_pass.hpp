#pragma once

// Internal to platform/gpu.

#include "platform/gpu/qrhi_private.hpp"
#include "platform/gpu/shader.hpp"

#include <array>
#include <memory>

namespace platform {

using ColorMatrix = std::array<Float4, 3>; ///< rows; the fourth column is not used

/// The pass that applies a `Shader` to a view's drawable, into a texture of its own.
class ShaderPass {
  public:
    ShaderPass(QRhi& rhi, const Shader& shader, QShader vertexFunction);

    /// Makes everything for a drawable; again after that has got another size. False when the
    /// function is missing or the device refuses.
    bool prepare(QRhiTexture& drawable, QRhiSampler& sampler);

    /// Takes another shader with the same function. False when its function is another one.
    bool update(const Shader& shader);
    void record(QRhiCommandBuffer& commands, const ColorMatrix& toSRGB);

    /// Linear light with the primaries of sRGB; the drawable's size.
    [[nodiscard]] QRhiTexture& picture() const { return *picture_; }

  private:
    /// The std140 block of shader.glsl.
    struct Uniforms {
        ColorMatrix toSRGB{};
        Shader::Arguments arguments{};
        friend bool operator==(const Uniforms&, const Uniforms&) = default;
    };
    bool create(QRhiTexture& drawable, QRhiSampler& sampler);

    QRhi& rhi_;
    ShaderLibrary library_;
    QString functionName_;
    QShader vertexFunction_;
    Uniforms uniforms_;
    bool isWritten_ = false;

    std::unique_ptr<QRhiTexture> picture_;
    std::unique_ptr<QRhiTextureRenderTarget> target_;
    std::unique_ptr<QRhiRenderPassDescriptor> pass_;
    std::unique_ptr<QRhiBuffer> buffer_;
    std::unique_ptr<QRhiShaderResourceBindings> bindings_;
    std::unique_ptr<QRhiGraphicsPipeline> pipeline_;
};

} // namespace platform
