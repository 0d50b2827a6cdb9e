#include "shaders/about_visual.hpp"

#include "platform/gpu/gpu_error.hpp"
#include "shaders/resource_bundle_accessor.hpp"

#include <QEvent>
#include <QWindow>

#include <exception>

namespace kestrel {
namespace {

/// A view by itself is in no window until it is shown as one; a window that is to be shown knows
/// its scale already.
qreal backingScaleFactor(const QWidget& view) {
    const bool isInWindow = !view.isWindow() || view.windowHandle() != nullptr;
    return isInWindow ? view.window()->devicePixelRatio() : 1.0;
}

QImage loadTexture(const platform::Bundle& bundle, const char* name, qreal scale) {
    const platform::ImageAsset* const asset = bundle.assets().image(QString::fromLatin1(name));
    if (asset == nullptr || asset->image(scale).isNull()) {
        throw platform::GpuError(std::string("there is no image ") + name);
    }
    return asset->image(scale);
}

std::array<QImage, 2> loadTextures(const platform::GpuView& view, const platform::Bundle* bundle) {
    if (view.device() == nullptr) {
        throw RendererError(RendererError::Case::noValidDevice);
    }
    const platform::Bundle& source = bundle != nullptr ? *bundle : resourceBundle();
    const qreal scale = backingScaleFactor(view);
    return {loadTexture(source, "tern-logo", scale), loadTexture(source, "tern-noise", scale)};
}

} // namespace

AboutRenderer::AboutRenderer(platform::GpuView& view, const core::Clock& clock,
                             const platform::Bundle* bundle)
    : AboutRenderer(view, clock, loadTextures(view, bundle)) {}

AboutRenderer::AboutRenderer(platform::GpuView& view, const core::Clock& clock,
                             const std::array<QImage, 2>& textures)
    : UniformRenderer(view,
                      {.pipelineLabel = "About View Pipeline",
                       .commandBufferLabel = "About View Command Buffer",
                       .renderEncoderLabel = "About View Render Encoder",
                       .vertexFunctionName = QStringLiteral("aboutVertexShader"),
                       .fragmentFunctionName = QStringLiteral("aboutFragmentShader"),
                       .textures = {textures[0], textures[1]},
                       .period = familyPeriod},
                      clock),
      logoTexture_(textures[0]),
      noiseTexture_(textures[1]) {}

AboutSampleView::AboutSampleView(const core::Clock& clock)
    : GpuView(nullptr, platform::GpuDevice::systemDefault()), clock_(clock) {
    setColorSpace(platform::DrawableColorSpace::extendedLinearDisplayP3);
    setPaused(false);
}

AboutSampleView::~AboutSampleView() {
    setDelegate(nullptr);
}

bool AboutSampleView::event(QEvent* event) {
    const bool isHandled = GpuView::event(event);
    if (event->type() == QEvent::ParentChange && parentWidget() != nullptr) {
        viewDidMoveToSuperview();
    }
    return isHandled;
}

void AboutSampleView::viewDidMoveToSuperview() {
    setDelegate(nullptr);
    try {
        renderer_ = std::make_unique<AboutRenderer>(*this, clock_);
    } catch (const std::exception&) {
        renderer_.reset(); // an empty view
    }
    setDelegate(renderer_.get());
    setVisible(renderer_ != nullptr);
}

} // namespace kestrel
