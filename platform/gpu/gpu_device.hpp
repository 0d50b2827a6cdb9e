#pragma once

#include <memory>

class QOffscreenSurface;
class QRhi;
class QRhiCommandBuffer;

namespace platform {

enum class GpuApi { openGL, vulkan, metal, null };

/// How a frame operation of the device ended.
enum class FrameResult { success, error, deviceLost };

/// A graphics device. Views in windows draw with the device that the window composites with; a
/// headless device belongs to whoever holds it and draws into memory only. A derived device stands
/// for another one and may watch its frames: time them, count them, or have them fail. Main thread.
class GpuDevice {
  public:
    virtual ~GpuDevice();
    GpuDevice& operator=(const GpuDevice&) = delete;

    /// The device that windows are composited with, null when the machine (or the window system in
    /// use) has none that works. Found by really starting one, at the first call.
    static std::shared_ptr<GpuDevice> systemDefault();

    /// Begins to load what `systemDefault` needs, beside whatever the program does until it asks.
    /// Once, after the application object is made.
    static void prepareSystemDefault();

    /// Lets `systemDefault` look for this interface only. Before its first call.
    static void setSystemApi(GpuApi api);

    /// A device without a window; null when it cannot be started. `GpuApi::null` draws nothing and
    /// always works.
    static std::shared_ptr<GpuDevice> headless(GpuApi api);

    [[nodiscard]] GpuApi api() const { return api_; }
    /// The device's own interface; null for the system's default device, where it is the window's.
    [[nodiscard]] QRhi* rhi() const { return rhi_.get(); }

    /// Begins a frame beside the window's own ones, with its commands in `commands`, and ends it.
    /// `rhi` is the window's or this device's own. Every frame of a view goes through these.
    virtual FrameResult beginFrame(QRhi& rhi, QRhiCommandBuffer*& commands);
    virtual FrameResult endFrame(QRhi& rhi);

  protected:
    /// The same device once more, for devices that are derived.
    GpuDevice(const GpuDevice& device);

  private:
    explicit GpuDevice(GpuApi api);
    bool start();

    GpuApi api_;
    std::shared_ptr<QOffscreenSurface> surface_; // outlives rhi_
    std::shared_ptr<QRhi> rhi_;
};

} // namespace platform
