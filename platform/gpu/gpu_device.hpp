#pragma once

#include <memory>

class QOffscreenSurface;
class QRhi;

namespace platform {

enum class GpuApi { openGL, vulkan, metal, null };

/// A graphics device. Views in windows draw with the device that the window composites with; a
/// headless device belongs to whoever holds it and draws into memory only. Main thread.
class GpuDevice {
  public:
    ~GpuDevice();
    GpuDevice(const GpuDevice&) = delete;
    GpuDevice& operator=(const GpuDevice&) = delete;

    /// The device that windows are composited with, null when the machine (or the window system in
    /// use) has none that works. Found by really starting one, at the first call.
    static std::shared_ptr<GpuDevice> systemDefault();

    /// Lets `systemDefault` look for this interface only. Before its first call.
    static void setSystemApi(GpuApi api);

    /// A device without a window; null when it cannot be started. `GpuApi::null` draws nothing and
    /// always works.
    static std::shared_ptr<GpuDevice> headless(GpuApi api);

    [[nodiscard]] GpuApi api() const { return api_; }
    /// The device's own interface; null for the system's default device, where it is the window's.
    [[nodiscard]] QRhi* rhi() const { return rhi_.get(); }

  private:
    explicit GpuDevice(GpuApi api);
    bool start();

    GpuApi api_;
    std::unique_ptr<QOffscreenSurface> surface_; // outlives rhi_
    std::unique_ptr<QRhi> rhi_;
};

} // namespace platform
