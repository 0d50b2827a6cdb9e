#include "platform/gpu/internal/shader_pass.hpp"

#include "platform/gpu/gpu_error.hpp"

#include <utility>

namespace platform {

ShaderPass::ShaderPass(QRhi& rhi, const Shader& shader, QShader vertexFunction)
    : rhi_(rhi),
      library_(shader.library),
      functionName_(shader.functionName),
      vertexFunction_(std::move(vertexFunction)) {
    uniforms_.arguments = shader.paddedArguments();
}

bool ShaderPass::prepare(QRhiTexture& drawable, QRhiSampler& sampler) {
    if (pipeline_ == nullptr) {
        return create(drawable, sampler);
    }
    picture_->setPixelSize(drawable.pixelSize());
    return picture_->create() && target_->create() && bindings_->create();
}

bool ShaderPass::create(QRhiTexture& drawable, QRhiSampler& sampler) {
    std::optional<ShaderFunction> function;
    try {
        function = library_.function(functionName_);
    } catch (const GpuError&) {
        return false;
    }
    if (!function || function->shader().stage() != QShader::FragmentStage) {
        return false;
    }
    picture_.reset(
        rhi_.newTexture(QRhiTexture::RGBA16F, drawable.pixelSize(), 1, QRhiTexture::RenderTarget));
    buffer_.reset(rhi_.newBuffer(QRhiBuffer::Dynamic, QRhiBuffer::UniformBuffer, sizeof(Uniforms)));
    if (!picture_->create() || !buffer_->create()) {
        return false;
    }
    target_.reset(rhi_.newTextureRenderTarget({QRhiColorAttachment(picture_.get())}));
    pass_.reset(target_->newCompatibleRenderPassDescriptor());
    target_->setRenderPassDescriptor(pass_.get());
    constexpr auto stage = QRhiShaderResourceBinding::FragmentStage;
    bindings_.reset(rhi_.newShaderResourceBindings());
    bindings_->setBindings(
        {QRhiShaderResourceBinding::uniformBuffer(0, stage, buffer_.get()),
         QRhiShaderResourceBinding::sampledTexture(1, stage, &drawable, &sampler)});
    auto pipeline = std::unique_ptr<QRhiGraphicsPipeline>(rhi_.newGraphicsPipeline());
    pipeline->setShaderStages({{QRhiShaderStage::Vertex, vertexFunction_},
                               {QRhiShaderStage::Fragment, function->shader()}});
    pipeline->setShaderResourceBindings(bindings_.get());
    pipeline->setRenderPassDescriptor(pass_.get());
    if (!target_->create() || !bindings_->create() || !pipeline->create()) {
        return false;
    }
    pipeline_ = std::move(pipeline);
    return true;
}

bool ShaderPass::update(const Shader& shader) {
    if (shader.library != library_ || shader.functionName != functionName_) {
        return false;
    }
    uniforms_.arguments = shader.paddedArguments();
    isWritten_ = false;
    return true;
}

void ShaderPass::record(QRhiCommandBuffer& commands, const ColorMatrix& toSRGB) {
    QRhiResourceUpdateBatch* updates = nullptr;
    if (!isWritten_ || uniforms_.toSRGB != toSRGB) {
        uniforms_.toSRGB = toSRGB;
        updates = rhi_.nextResourceUpdateBatch();
        updates->updateDynamicBuffer(buffer_.get(), 0, sizeof uniforms_, &uniforms_);
        isWritten_ = true;
    }
    const QSize size = picture_->pixelSize();
    commands.beginPass(target_.get(), Qt::transparent, {1.0F, 0}, updates);
    commands.setGraphicsPipeline(pipeline_.get());
    commands.setViewport(
        {0, 0, static_cast<float>(size.width()), static_cast<float>(size.height())});
    commands.setShaderResources(bindings_.get());
    commands.draw(3);
    commands.endPass();
}

} // namespace platform
