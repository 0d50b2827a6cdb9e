#pragma once

#include "platform/gpu/gpu_view.hpp"
#include "shaders/metal_shader.hpp"

#include <memory>

namespace gallery {

/// Colours of one lightness, weak ones at the bottom, many beyond what a screen can show: to try
/// shaders on. Empty without a device.
class WideGamutPicture final : public platform::GpuView {
  public:
    explicit WideGamutPicture(QWidget* parent);
    ~WideGamutPicture() override;

  private:
    std::unique_ptr<kestrel::MetalShaderRenderer> renderer_;
};

} // namespace gallery
