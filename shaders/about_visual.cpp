#include "shaders/about_renderer.hpp"

#include "platform/gpu/gpu_error.hpp"
#include "shaders/renderer_error.hpp"
#include "shaders/resource_bundle_accessor.hpp"

#include <QWindow>

namespace kestrel {
namespace {

/// A window is one as far as it is on a screen, or has been.
qreal backingScaleFactor(const QWidget& view) {
    const QWindow* const window = view.window()->windowHandle();
    return window != nullptr ? window->devicePixelRatio() : 1.0;
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
                       .textures = {textures[0], textures[1]}},
                      clock),
      logoTexture_(textures[0]),
      noiseTexture_(textures[1]) {}

} // namespace kestrel
