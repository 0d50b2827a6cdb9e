#include "shaders/metal_shader.hpp"

#include <QRandomGenerator>

namespace kestrel {

std::uint32_t systemRandom() {
    return QRandomGenerator::system()->generate();
}

MetalShaderRenderer::MetalShaderRenderer(platform::GpuView& view, const QString& name,
                                         const QString& vertexFunctionName,
                                         const QString& fragmentFunctionName,
                                         const MetalShaderOptions& options,
                                         const core::Clock& clock, const RandomSource& random)
    : UniformRenderer(view,
                      {.commandBufferLabel = name.toUtf8() + " Command Buffer",
                       .vertexFunctionName = vertexFunctionName,
                       .fragmentFunctionName = fragmentFunctionName,
                       .period = options.period,
                       .bundle = options.bundle},
                      clock),
      name_(name),
      seed_(random()) {}

MetalShaderViewController::MetalShaderViewController(QWidget* view, const QString& rendererName,
                                                     const QString& vertxShaderName,
                                                     const QString& fragmentShaderName,
                                                     const MetalShaderOptions& options,
                                                     const core::Clock& clock)
    : RendererHost(view, clock),
      rendererName_(rendererName),
      vertxShaderName_(vertxShaderName),
      fragmentShaderName_(fragmentShaderName),
      options_(options) {}

std::unique_ptr<QuadRenderer> MetalShaderViewController::makeRenderer(platform::GpuView& view) {
    return std::make_unique<MetalShaderRenderer>(view, rendererName_, vertxShaderName_,
                                                 fragmentShaderName_, options_, clock());
}

ContentViewShader::ContentViewShader(QWidget* parent)
    : QWidget(parent),
      controller_(new MetalShaderViewController(
          this, QStringLiteral("Main"), QStringLiteral("audioWaveformVertexShader"),
          QStringLiteral("audioWaveformFragmentShader"), {.period = familyPeriod})) {
    resize(300, 300);
}

void ContentViewShader::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    updateView();
}

void ContentViewShader::updateView() {
    if (platform::GpuView* const view = controller_->metalKitView()) {
        view->setNeedsDisplay();
    }
}

} // namespace kestrel
