#include "shaders/quad_renderer.hpp"

#include "core/fatal.hpp"
#include "shaders/resource_bundle_accessor.hpp"

#include <QCoreApplication>
#include <QThread>

#include <cmath>
#include <utility>

namespace kestrel {
namespace {

constexpr const char* noValidDeviceKey = "MetalRenderer.Error.description";
constexpr const char* noValidDeviceText = "No valid metal device";

double secondsBetween(core::Instant from, core::Instant to) {
    return std::abs((to - from).count());
}

/// In every build: frames from another thread would corrupt the device's state now and then.
void requireMainThread(const platform::GpuView& view) {
    if (view.thread() != QThread::currentThread()) {
        core::fatal("A renderer is used outside of the main thread");
    }
}

std::optional<platform::ShaderFunction> findFunction(const QString& name,
                                                     const platform::Bundle* first) {
    std::optional<platform::ShaderFunction> function;
    if (first != nullptr) {
        function = platform::ShaderLibrary(*first).function(name);
    }
    return function ? function : platform::ShaderLibrary(resourceBundle()).function(name);
}

} // namespace

QString RendererError::localizedDescription() const {
    //: Error message shown run on a machine without metal
    const QString text = QCoreApplication::translate("", "MetalRenderer.Error.description");
    // The key stands for itself where there is no catalogue.
    return text == QLatin1String(noValidDeviceKey) ? QString::fromLatin1(noValidDeviceText) : text;
}

const char* RendererError::what() const noexcept {
    return noValidDeviceText;
}

QuadRenderer::QuadRenderer(platform::GpuView& view, RendererDescription description,
                           std::size_t uniformSize, const core::Clock& clock)
    : clock_(clock),
      device_(view.device()),
      commandBufferLabel_(std::move(description.commandBufferLabel)),
      renderEncoderLabel_(std::move(description.renderEncoderLabel)),
      period_(description.period) {
    if (device_ == nullptr) {
        throw RendererError(RendererError::Case::noValidDevice);
    }
    pipelineState_ = std::make_unique<platform::QuadPipeline>(
        view, platform::QuadPipelineDescriptor{
                  std::move(description.pipelineLabel),
                  findFunction(description.vertexFunctionName, description.bundle),
                  findFunction(description.fragmentFunctionName, description.bundle), uniformSize,
                  std::move(description.textures)});
    drawableSizeWillChange(view, view.drawableSize());
    startTime_ = clock_.now();
}

void QuadRenderer::resume() {
    if (pauseTime) {
        pausedTime_ += secondsBetween(*pauseTime, clock_.now());
    }
    pauseTime.reset();
}

double QuadRenderer::elapsedTime() const {
    return secondsBetween(startTime_, clock_.now()) - pausedTime_;
}

float QuadRenderer::time() const {
    const double elapsed = elapsedTime();
    return static_cast<float>(elapsed - wholePeriods(elapsed));
}

double QuadRenderer::wholePeriods(double elapsed) const {
    return period_ > 0 ? period_ * std::floor(elapsed / period_) : 0;
}

QuadRenderer::ViewSize QuadRenderer::viewSize() const {
    return {static_cast<float>(viewport_.width), static_cast<float>(viewport_.height)};
}

void QuadRenderer::drawableSizeWillChange(platform::GpuView& view, QSize pixels) {
    requireMainThread(view);
    viewport_ = {0, 0, static_cast<double>(pixels.width()), static_cast<double>(pixels.height()),
                 0, 1};
}

void QuadRenderer::draw(platform::GpuView& view) {
    requireMainThread(view);
    if (platform::GpuRenderPass* const pass =
            view.beginRenderPass(commandBufferLabel_, renderEncoderLabel_)) {
        pipelineState_->draw(*pass, viewport_, uniformBytes());
    }
}

} // namespace kestrel
