#include "platform/gpu/gpu_device.hpp"

#include "platform/gpu/qrhi_private.hpp"

#include <QOffscreenSurface>

#include <optional>
#include <vector>

namespace platform {
namespace {

std::optional<GpuApi>& forcedApi() {
    static std::optional<GpuApi> api;
    return api;
}

std::vector<GpuApi> candidates() {
    if (forcedApi()) {
        return {*forcedApi()};
    }
#ifdef Q_OS_MACOS
    return {GpuApi::metal};
#else
    // OpenGL first: ending a frame waits far less there on the software drivers.
    return {GpuApi::openGL, GpuApi::vulkan};
#endif
}

FrameResult toFrameResult(QRhi::FrameOpResult result) {
    switch (result) {
    case QRhi::FrameOpSuccess:
        return FrameResult::success;
    case QRhi::FrameOpDeviceLost:
        return FrameResult::deviceLost;
    default:
        return FrameResult::error;
    }
}

} // namespace

GpuDevice::GpuDevice(GpuApi api) : api_(api) {}

GpuDevice::GpuDevice(const GpuDevice& device) = default;

GpuDevice::~GpuDevice() = default;

void GpuDevice::setSystemApi(GpuApi api) {
    forcedApi() = api;
}

bool GpuDevice::start() {
    switch (api_) {
    case GpuApi::openGL: {
        surface_.reset(QRhiGles2InitParams::newFallbackSurface());
        QRhiGles2InitParams params;
        params.fallbackSurface = surface_.get();
        rhi_.reset(QRhi::create(QRhi::OpenGLES2, &params));
        break;
    }
    case GpuApi::vulkan: {
#if QT_CONFIG(vulkan)
        QRhiVulkanInitParams params;
        params.inst = QVulkanDefaultInstance::instance();
        if (params.inst != nullptr && params.inst->isValid()) {
            rhi_.reset(QRhi::create(QRhi::Vulkan, &params));
        }
#endif
        break;
    }
    case GpuApi::metal: {
#ifdef Q_OS_MACOS
        QRhiMetalInitParams params;
        rhi_.reset(QRhi::create(QRhi::Metal, &params));
#endif
        break;
    }
    case GpuApi::null: {
        QRhiNullInitParams params;
        rhi_.reset(QRhi::create(QRhi::Null, &params));
        break;
    }
    }
    return rhi_ != nullptr &&
           rhi_->isTextureFormatSupported(QRhiTexture::RGBA16F, QRhiTexture::RenderTarget);
}

std::shared_ptr<GpuDevice> GpuDevice::systemDefault() {
    static const std::shared_ptr<GpuDevice> device = []() -> std::shared_ptr<GpuDevice> {
        // Without this the window would crash when it is first shown.
        if (!QGuiApplicationPrivate::platformIntegration()->hasCapability(
                QPlatformIntegration::RhiBasedRendering)) {
            return nullptr;
        }
        for (const GpuApi api : candidates()) {
            std::shared_ptr<GpuDevice> probe(new GpuDevice(api));
            if (api != GpuApi::null && probe->start()) {
                probe->rhi_.reset();
                probe->surface_.reset();
                return probe;
            }
        }
        return nullptr;
    }();
    return device;
}

FrameResult GpuDevice::beginFrame(QRhi& rhi, QRhiCommandBuffer*& commands) {
    return toFrameResult(rhi.beginOffscreenFrame(&commands));
}

FrameResult GpuDevice::endFrame(QRhi& rhi) {
    return toFrameResult(rhi.endOffscreenFrame());
}

std::shared_ptr<GpuDevice> GpuDevice::headless(GpuApi api) {
    std::shared_ptr<GpuDevice> device(new GpuDevice(api));
    return device->start() ? device : nullptr;
}

} // namespace platform
