#include "platform/gpu/quad_pipeline.hpp"

#include "platform/gpu/gpu_error.hpp"
#include "platform/gpu/qrhi_private.hpp"

#include <array>
#include <cstring>

namespace platform {
namespace {

// The corners in clip space, in the order of a triangle strip.
constexpr std::array<float, 8> corners{-1, -1, -1, 1, 1, -1, 1, 1};
static_assert(sizeof corners == 32);

} // namespace

struct QuadPipeline::Objects {
    std::unique_ptr<QRhiBuffer> vertices;
    std::unique_ptr<QRhiBuffer> uniforms;
    std::unique_ptr<QRhiSampler> sampler;
    std::vector<std::unique_ptr<QRhiTexture>> textures;
    std::unique_ptr<QRhiShaderResourceBindings> bindings;
    std::unique_ptr<QRhiGraphicsPipeline> pipeline;
    bool isUploaded = false;

    bool create(const GpuContext& context, const QuadPipelineDescriptor& descriptor);
    void upload(const GpuContext& context, const QuadPipelineDescriptor& descriptor);
};

bool QuadPipeline::Objects::create(const GpuContext& context,
                                   const QuadPipelineDescriptor& descriptor) {
    QRhi& rhi = *context.rhi;
    vertices.reset(rhi.newBuffer(QRhiBuffer::Immutable, QRhiBuffer::VertexBuffer, sizeof corners));
    uniforms.reset(rhi.newBuffer(QRhiBuffer::Dynamic, QRhiBuffer::UniformBuffer,
                                 static_cast<int>(descriptor.uniformSize)));
    sampler.reset(rhi.newSampler(QRhiSampler::Linear, QRhiSampler::Linear, QRhiSampler::Nearest,
                                 QRhiSampler::Repeat, QRhiSampler::Repeat));
    if (!vertices->create() || !uniforms->create() || !sampler->create()) {
        return false;
    }
    constexpr auto stage = QRhiShaderResourceBinding::FragmentStage;
    std::vector<QRhiShaderResourceBinding> resources{
        QRhiShaderResourceBinding::uniformBuffer(0, stage, uniforms.get())};
    for (const QImage& image : descriptor.textures) {
        // Not 8 bit: some drivers filter in the texture's precision, and the steps would show where
        // a function stretches a gradient.
        textures.emplace_back(
            rhi.newTexture(QRhiTexture::RGBA16F, image.size(), 1,
                           QRhiTexture::MipMapped | QRhiTexture::UsedWithGenerateMips));
        if (!textures.back()->create()) {
            return false;
        }
        resources.push_back(QRhiShaderResourceBinding::sampledTexture(
            static_cast<int>(resources.size()), stage, textures.back().get(), sampler.get()));
    }
    bindings.reset(rhi.newShaderResourceBindings());
    bindings->setBindings(resources.begin(), resources.end());
    pipeline.reset(rhi.newGraphicsPipeline());
    pipeline->setName(descriptor.label);
    pipeline->setTopology(QRhiGraphicsPipeline::TriangleStrip);
    pipeline->setShaderStages({{QRhiShaderStage::Vertex, descriptor.vertexFunction->shader()},
                               {QRhiShaderStage::Fragment, descriptor.fragmentFunction->shader()}});
    QRhiVertexInputLayout layout;
    layout.setBindings({{2 * sizeof(float)}});
    layout.setAttributes({{0, 0, QRhiVertexInputAttribute::Float2, 0}});
    pipeline->setVertexInputLayout(layout);
    pipeline->setShaderResourceBindings(bindings.get());
    pipeline->setRenderPassDescriptor(context.renderPass);
    return bindings->create() && pipeline->create();
}

void QuadPipeline::Objects::upload(const GpuContext& context,
                                   const QuadPipelineDescriptor& descriptor) {
    auto* const updates = context.rhi->nextResourceUpdateBatch();
    updates->uploadStaticBuffer(vertices.get(), corners.data());
    for (std::size_t i = 0; i < textures.size(); ++i) {
        updates->uploadTexture(textures[i].get(), descriptor.textures[i].convertToFormat(
                                                      QImage::Format_RGBA16FPx4_Premultiplied));
        updates->generateMips(textures[i].get());
    }
    context.commandBuffer->resourceUpdate(updates);
    isUploaded = true;
}

QuadPipeline::QuadPipeline(GpuView& view, QuadPipelineDescriptor descriptor)
    : descriptor_(std::move(descriptor)), view_(&view) {
    const auto requireStage = [](const std::optional<ShaderFunction>& function,
                                 QShader::Stage stage, const char* which) {
        if (!function || function->shader().stage() != stage) {
            throw GpuError(std::string("the pipeline has no ") + which + " function");
        }
    };
    requireStage(descriptor_.vertexFunction, QShader::VertexStage, "vertex");
    requireStage(descriptor_.fragmentFunction, QShader::FragmentStage, "fragment");
    if (!view.addResources(*this)) {
        view.removeResources(*this);
        throw GpuError("the device refuses the pipeline");
    }
}

QuadPipeline::~QuadPipeline() {
    if (view_ != nullptr) {
        view_->removeResources(*this);
    }
}

bool QuadPipeline::prepare(const GpuContext& context) {
    if (objects_ == nullptr) {
        auto objects = std::make_unique<Objects>();
        if (!objects->create(context, descriptor_)) {
            return false;
        }
        objects_ = std::move(objects);
    }
    if (!objects_->isUploaded && context.commandBuffer != nullptr) {
        objects_->upload(context, descriptor_);
    }
    return true;
}

void QuadPipeline::release() {
    objects_.reset();
}

bool QuadPipeline::draw(GpuRenderPass& pass, const Viewport& viewport,
                        std::span<const std::byte> uniforms) {
    if (objects_ == nullptr || !objects_->isUploaded ||
        uniforms.size() != descriptor_.uniformSize) {
        return false;
    }
    char* const block = objects_->uniforms->beginFullDynamicBufferUpdateForCurrentFrame();
    if (block == nullptr) {
        return false;
    }
    std::memcpy(block, uniforms.data(), uniforms.size());
    objects_->uniforms->endFullDynamicBufferUpdateForCurrentFrame();

    QRhiCommandBuffer& commands = *pass.commandBuffer;
    const auto toFloat = [](double value) { return static_cast<float>(value); };
    commands.setGraphicsPipeline(objects_->pipeline.get());
    commands.setViewport({toFloat(viewport.originX), toFloat(viewport.originY),
                          toFloat(viewport.width), toFloat(viewport.height),
                          toFloat(viewport.znear), toFloat(viewport.zfar)});
    const QRhiCommandBuffer::VertexInput input(objects_->vertices.get(), 0);
    commands.setShaderResources(objects_->bindings.get());
    commands.setVertexInput(0, 1, &input);
    commands.draw(vertexCount);
    return true;
}

} // namespace platform
