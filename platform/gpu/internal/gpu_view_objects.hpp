#pragma once

// Internal to platform/gpu.

#include "platform/gpu/gpu_view.hpp"
#include "platform/gpu/internal/shader_pass.hpp"
#include "platform/gpu/qrhi_private.hpp"

#include <QColor>
#include <QImage>

#include <memory>
#include <optional>

namespace platform {

/// What the encode pass needs to know of a frame.
struct EncodeSettings {
    DrawableColorSpace colorSpace;
    QColor ground;
    bool isYUpInClipSpace;
    friend bool operator==(const EncodeSettings&, const EncodeSettings&) = default;
};

/// Everything that a view keeps on its device: the linear drawable, the encoded picture that the
/// window composites, the pass from one to the other, and where there is a shader its pass before.
struct GpuView::Objects {
  public:
    explicit Objects(QRhi* rhi) : rhi_(rhi) {}

    [[nodiscard]] QRhi* rhi() const { return rhi_; }
    [[nodiscard]] QSize size() const { return size_; }
    [[nodiscard]] bool hasPicture() const { return hasPicture_; }
    [[nodiscard]] QRhiRenderPassDescriptor* renderPass() const { return drawablePass_.get(); }
    [[nodiscard]] QRhiTexture* encodedTexture() const {
        return hasPicture_ ? encoded_.get() : nullptr;
    }

    /// Makes both textures for a size in pixels. False when the device refuses; then the size is
    /// none, and nothing may be drawn until it succeeds.
    bool resize(QSize size);

    /// Applies a shader from the next frame on.
    void setShader(const std::optional<Shader>& shader);

    void beginFrame(QRhiCommandBuffer* commands);
    GpuRenderPass* beginPass(const QByteArray& label, const QByteArray& passLabel);
    void endFrame(const EncodeSettings& settings);

    QImage readEncoded();
    QImage readDrawable();

  private:
    bool create(QSize size);
    [[nodiscard]] std::unique_ptr<QRhiShaderResourceBindings>
    makeEncodeBindings(QRhiTexture& source) const;
    bool prepareShading();
    void writeUniforms(const EncodeSettings& settings);
    QImage read(QRhiTexture* texture, QImage::Format format, bool isUpsideDown);

    QRhi* rhi_;
    QSize size_;
    bool isMade_ = false;
    bool hasPicture_ = false;
    bool isPassOpen_ = false;
    bool hasDrawn_ = false;
    GpuRenderPass pass_{nullptr};
    EncodeSettings written_{};
    bool isWritten_ = false;
    bool isShaderChanged_ = false;

    std::unique_ptr<QRhiTexture> drawable_;
    std::unique_ptr<QRhiTextureRenderTarget> drawableTarget_;
    std::unique_ptr<QRhiRenderPassDescriptor> drawablePass_;
    std::unique_ptr<QRhiTexture> encoded_;
    std::unique_ptr<QRhiTextureRenderTarget> encodedTarget_;
    std::unique_ptr<QRhiRenderPassDescriptor> encodedPass_;
    std::unique_ptr<QRhiBuffer> uniforms_;
    std::unique_ptr<QRhiSampler> sampler_;
    std::unique_ptr<QRhiShaderResourceBindings> bindings_;
    std::optional<Shader> shader_;
    std::unique_ptr<ShaderPass> shading_; // null without a shader, or where it cannot be applied
    std::unique_ptr<QRhiShaderResourceBindings> shadedBindings_;
    std::unique_ptr<QRhiGraphicsPipeline> pipeline_;
};

} // namespace platform
