#include "platform/gpu/gpu_device.hpp"

#include "platform/gpu/qrhi_private.hpp"

#include <QOffscreenSurface>
#include <QOpenGLContext>

#include <future>
#include <optional>
#include <thread>
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

bool canShowWindowsByGpu() {
    // Without this the window would crash when it is first shown.
    return QGuiApplicationPrivate::platformIntegration()->hasCapability(
        QPlatformIntegration::RhiBasedRendering);
}

std::future<void>& preparation() {
    static std::future<void> running; // waited for at the end at the latest
    return running;
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

void GpuDevice::prepareSystemDefault() {
    // Elsewhere nobody has tried whether another thread may touch the driver so early; asking the
    // toolkit would load it here. Without a second processor it would only be in the way.
    if (QGuiApplication::platformName() != QLatin1String("xcb") ||
        std::thread::hardware_concurrency() < 2 || candidates().front() != GpuApi::openGL ||
        !canShowWindowsByGpu()) {
        return;
    }
    preparation() = std::async(std::launch::async, [] {
        // The first context loads the driver, which is most of what a device costs.
        QOpenGLContext context;
        context.create();
    });
}

std::shared_ptr<GpuDevice> GpuDevice::systemDefault() {
    static const std::shared_ptr<GpuDevice> device = []() -> std::shared_ptr<GpuDevice> {
        if (preparation().valid()) {
            preparation().wait();
        }
        if (!canShowWindowsByGpu()) {
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
