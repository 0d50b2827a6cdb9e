#include "gallery/shaders/wide_gamut_picture.hpp"

#include <exception>

namespace gallery {

WideGamutPicture::WideGamutPicture(QWidget* parent)
    : GpuView(parent, platform::GpuDevice::systemDefault()) {
    try {
        renderer_ = std::make_unique<kestrel::MetalShaderRenderer>(
            *this, QStringLiteral("Wide Gamut"), QStringLiteral("audioWaveformVertexShader"),
            QStringLiteral("wideGamutFragmentShader"));
    } catch (const std::exception&) {
        return;
    }
    setDelegate(renderer_.get());
}

WideGamutPicture::~WideGamutPicture() {
    setDelegate(nullptr);
}

} // namespace gallery
