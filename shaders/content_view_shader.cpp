#include "shaders/content_view_shader.hpp"

#include "shaders/metal_shader_view_controller.hpp"

namespace kestrel {

ContentViewShader::ContentViewShader(QWidget* parent)
    : QWidget(parent),
      controller_(new MetalShaderViewController(this, QStringLiteral("Main"),
                                                QStringLiteral("audioWaveformVertexShader"),
                                                QStringLiteral("audioWaveformFragmentShader"))) {
    resize(300, 300);
}

void ContentViewShader::updateView() {
    if (platform::GpuView* const view = controller_->metalKitView()) {
        view->setNeedsDisplay();
    }
}

} // namespace kestrel
