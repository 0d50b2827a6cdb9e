#include "platform/gpu/internal/gpu_view_objects.hpp"

#include <QFile>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

static void initializeEncodeShaders() {
    Q_INIT_RESOURCE(platform_gpu_shaders);
}

namespace platform {
namespace {

/// The std140 block of encode.frag.
struct EncodeUniforms {
    ColorMatrix toScreen;
    Float4 groundLinear;
    Float4 groundEncoded;
    float patternSize;
    float flippedHeight;
    std::array<float, 2> padding;
};
static_assert(sizeof(EncodeUniforms) == 96);

constexpr ColorMatrix identity{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};

// Linear Display P3 (SMPTE EG 432-1, D65) to linear sRGB: the product of the primaries' matrices.
constexpr ColorMatrix displayP3ToSRGB{{{1.2249401F, -0.2249404F, 0.0F, 0},
                                       {-0.0420569F, 1.0420571F, 0.0F, 0},
                                       {-0.0196376F, -0.0786361F, 1.0982735F, 0}}};

const ColorMatrix& toSRGB(DrawableColorSpace colorSpace) {
    return colorSpace == DrawableColorSpace::extendedLinearSRGB ? identity : displayP3ToSRGB;
}

float toLinear(float code) {
    return code <= 0.04045F ? code / 12.92F : std::pow((code + 0.055F) / 1.055F, 2.4F);
}

QShader embeddedShader(const char* name) {
    initializeEncodeShaders();
    QFile file(QString::fromLatin1(name));
    return file.open(QIODevice::ReadOnly) ? QShader::fromSerialized(file.readAll()) : QShader();
}

QShader encodeVertexFunction() {
    return embeddedShader(":/larkvox/gpu/encode.vert.qsb");
}

} // namespace

bool GpuView::Objects::create(QSize size) {
    const QShader vertex = encodeVertexFunction();
    const QShader fragment = embeddedShader(":/larkvox/gpu/encode.frag.qsb");
    if (!vertex.isValid() || !fragment.isValid()) {
        return false;
    }
    drawable_.reset(
        rhi_->newTexture(QRhiTexture::RGBA16F, size, 1,
                         QRhiTexture::RenderTarget | QRhiTexture::UsedAsTransferSource));
    encoded_.reset(rhi_->newTexture(QRhiTexture::RGBA8, size, 1,
                                    QRhiTexture::RenderTarget | QRhiTexture::UsedAsTransferSource));
    if (!drawable_->create() || !encoded_->create()) {
        return false;
    }
    const auto makeTarget = [this](auto& target, auto& pass, QRhiTexture* texture) {
        target.reset(rhi_->newTextureRenderTarget({QRhiColorAttachment(texture)}));
        pass.reset(target->newCompatibleRenderPassDescriptor());
        target->setRenderPassDescriptor(pass.get());
        return target->create();
    };
    if (!makeTarget(drawableTarget_, drawablePass_, drawable_.get()) ||
        !makeTarget(encodedTarget_, encodedPass_, encoded_.get())) {
        return false;
    }
    uniforms_.reset(
        rhi_->newBuffer(QRhiBuffer::Dynamic, QRhiBuffer::UniformBuffer, sizeof(EncodeUniforms)));
    sampler_.reset(rhi_->newSampler(QRhiSampler::Nearest, QRhiSampler::Nearest, QRhiSampler::None,
                                    QRhiSampler::ClampToEdge, QRhiSampler::ClampToEdge));
    bindings_ = makeEncodeBindings(*drawable_);
    pipeline_.reset(rhi_->newGraphicsPipeline());
    pipeline_->setShaderStages(
        {{QRhiShaderStage::Vertex, vertex}, {QRhiShaderStage::Fragment, fragment}});
    pipeline_->setShaderResourceBindings(bindings_.get());
    pipeline_->setRenderPassDescriptor(encodedPass_.get());
    return uniforms_->create() && sampler_->create() && bindings_->create() && pipeline_->create();
}

std::unique_ptr<QRhiShaderResourceBindings>
GpuView::Objects::makeEncodeBindings(QRhiTexture& source) const {
    constexpr auto stage = QRhiShaderResourceBinding::FragmentStage;
    std::unique_ptr<QRhiShaderResourceBindings> bindings(rhi_->newShaderResourceBindings());
    bindings->setBindings(
        {QRhiShaderResourceBinding::uniformBuffer(0, stage, uniforms_.get()),
         QRhiShaderResourceBinding::sampledTexture(1, stage, &source, sampler_.get())});
    return bindings;
}

bool GpuView::Objects::resize(QSize size) {
    hasPicture_ = false;
    isWritten_ = false;
    size_ = {};
    if (std::max(size.width(), size.height()) > rhi_->resourceLimit(QRhi::TextureSizeMax)) {
        return false;
    }
    if (!isMade_) {
        isMade_ = create(size);
        if (!isMade_) {
            return false;
        }
    } else {
        // The texture and render pass objects stay, so what was made with them stays valid.
        drawable_->setPixelSize(size);
        encoded_->setPixelSize(size);
        if (!drawable_->create() || !encoded_->create() || !drawableTarget_->create() ||
            !encodedTarget_->create() || !bindings_->create()) {
            return false;
        }
    }
    size_ = size;
    if (shader_ && !prepareShading()) {
        shading_.reset();
    }
    return true;
}

void GpuView::Objects::setShader(const std::optional<Shader>& shader) {
    shader_ = shader;
    isShaderChanged_ = true;
    if (shader_ && shading_ != nullptr && shading_->update(*shader_)) {
        return;
    }
    shading_.reset();
    isWritten_ = false; // who converts the colours has changed
    if (shader_ && !size_.isEmpty() && !prepareShading()) {
        shading_.reset();
    }
}

bool GpuView::Objects::prepareShading() {
    if (shading_ == nullptr) {
        shading_ = std::make_unique<ShaderPass>(*rhi_, *shader_, encodeVertexFunction());
    }
    if (!shading_->prepare(*drawable_, *sampler_)) {
        return false;
    }
    shadedBindings_ = makeEncodeBindings(shading_->picture());
    return shadedBindings_->create();
}

void GpuView::Objects::beginFrame(QRhiCommandBuffer* commands) {
    pass_.commandBuffer = commands;
    hasDrawn_ = false;
}

GpuRenderPass* GpuView::Objects::beginPass(const QByteArray& label, const QByteArray& passLabel) {
    if (pass_.commandBuffer == nullptr || isPassOpen_) {
        return nullptr;
    }
    pass_.commandBuffer->debugMarkBegin(label);
    pass_.commandBuffer->debugMarkBegin(passLabel);
    pass_.commandBuffer->beginPass(drawableTarget_.get(), Qt::transparent, {1.0F, 0});
    isPassOpen_ = true;
    hasDrawn_ = true;
    return &pass_;
}

void GpuView::Objects::writeUniforms(const EncodeSettings& settings) {
    if (isWritten_ && written_ == settings) {
        return;
    }
    EncodeUniforms values{};
    values.toScreen = shading_ != nullptr ? identity : toSRGB(settings.colorSpace);
    const QColor ground = settings.ground.toRgb();
    values.groundEncoded = {ground.redF(), ground.greenF(), ground.blueF(), 1};
    values.groundLinear = {toLinear(ground.redF()), toLinear(ground.greenF()),
                           toLinear(ground.blueF()), 1};
    values.patternSize = shading_ != nullptr ? 0.0F : 0.98F;
    // Positions with y up show upright where clip space has y up, and upside down elsewhere.
    values.flippedHeight = settings.isYUpInClipSpace ? 0.0F : static_cast<float>(size_.height());
    // A dynamic buffer has one copy for every frame in flight, so all of them are written.
    auto* const updates = rhi_->nextResourceUpdateBatch();
    updates->updateDynamicBuffer(uniforms_.get(), 0, sizeof values, &values);
    pass_.commandBuffer->resourceUpdate(updates);
    written_ = settings;
    isWritten_ = true;
}

void GpuView::Objects::endFrame(const EncodeSettings& settings) {
    QRhiCommandBuffer* const commands = pass_.commandBuffer;
    if (isPassOpen_) {
        commands->endPass();
        commands->debugMarkEnd();
        commands->debugMarkEnd();
        isPassOpen_ = false;
    }
    if (!hasDrawn_ && !hasPicture_) {
        // Nothing was ever drawn: an empty drawable, so that the ground shows.
        commands->beginPass(drawableTarget_.get(), Qt::transparent, {1.0F, 0});
        commands->endPass();
        hasDrawn_ = true;
    }
    if (hasDrawn_ || isShaderChanged_ || written_ != settings) {
        isShaderChanged_ = false;
        if (shading_ != nullptr) {
            shading_->record(*commands, toSRGB(settings.colorSpace));
        }
        writeUniforms(settings);
        commands->beginPass(encodedTarget_.get(), Qt::black, {1.0F, 0});
        commands->setGraphicsPipeline(pipeline_.get());
        commands->setViewport(
            {0, 0, static_cast<float>(size_.width()), static_cast<float>(size_.height())});
        commands->setShaderResources(shading_ != nullptr ? shadedBindings_.get() : bindings_.get());
        commands->draw(3);
        commands->endPass();
        hasPicture_ = true;
    }
    pass_.commandBuffer = nullptr;
}

QImage GpuView::Objects::read(QRhiTexture* texture, QImage::Format format, bool isUpsideDown) {
    QRhiCommandBuffer* commands = nullptr;
    if (!hasPicture_ || rhi_->beginOffscreenFrame(&commands) != QRhi::FrameOpSuccess) {
        return {};
    }
    QRhiReadbackResult result;
    auto* const updates = rhi_->nextResourceUpdateBatch();
    updates->readBackTexture({texture}, &result);
    commands->resourceUpdate(updates);
    if (rhi_->endOffscreenFrame() != QRhi::FrameOpSuccess || result.data.isEmpty()) {
        return {};
    }
    const auto* const bytes = reinterpret_cast<const uchar*>(result.data.constData());
    const QImage image(bytes, result.pixelSize.width(), result.pixelSize.height(), format);
    return isUpsideDown ? image.mirrored() : image.copy();
}

QImage GpuView::Objects::readEncoded() {
    return read(encoded_.get(), QImage::Format_RGBA8888_Premultiplied, rhi_->isYUpInFramebuffer());
}

QImage GpuView::Objects::readDrawable() {
    // Read before the encode pass has turned it round where that is needed.
    const bool isUpsideDown = rhi_->isYUpInNDC() == rhi_->isYUpInFramebuffer();
    return read(drawable_.get(), QImage::Format_RGBA16FPx4_Premultiplied, isUpsideDown)
        .convertToFormat(QImage::Format_RGBA32FPx4_Premultiplied);
}

} // namespace platform
