#pragma once

#include "core/clock.hpp"
#include "platform/gpu/gpu_view.hpp"
#include "platform/gpu/quad_pipeline.hpp"

#include <QByteArray>
#include <QString>

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace kestrel {

/// What differs from one renderer of this library to the next.
struct RendererDescription {
    QByteArray pipelineLabel = "Shader Pipeline";
    QByteArray commandBufferLabel;
    QString vertexFunctionName;
    QString fragmentFunctionName;
    std::size_t uniformSize = 0; ///< bytes of the fragment function's std140 block
    std::vector<QImage> textures;
};

/// Draws a quad over the whole view, coloured by a fragment function, and keeps the animation's
/// time: seconds since creation less all finished pauses. What the fragment function gets is the
/// derived class's matter. Main thread.
class QuadRenderer : public platform::GpuViewDelegate {
  public:
    using ViewSize = std::array<float, 2>; ///< width and height of the drawable in pixels

    ~QuadRenderer() override = default;

    /// The instant at which the current pause began; absent while running. Setting it again
    /// during a pause forgets the earlier part of that pause.
    std::optional<core::Instant> pauseTime;

    /// Seconds of all finished pauses.
    [[nodiscard]] double pausedTime() const { return pausedTime_; }
    /// Begins a pause now.
    void pause() { pauseTime = clock_.now(); }
    /// Ends the current pause, if there is one.
    void resume();
    /// The animation's time of now in seconds: what the fragment function gets. It goes on during
    /// a pause, which is taken off when it ends.
    [[nodiscard]] float time() const;

    [[nodiscard]] const platform::GpuDevice& device() const { return *device_; }
    [[nodiscard]] const platform::Viewport& viewport() const { return viewport_; }
    [[nodiscard]] ViewSize viewSize() const;
    [[nodiscard]] static int vertexCount() { return platform::QuadPipeline::vertexCount; }

    void drawableSizeWillChange(platform::GpuView& view, QSize pixels) final;
    void draw(platform::GpuView& view) final;

  protected:
    /// Throws `RendererError` when the view has no device, and `platform::GpuError` when the
    /// library's bundle does not give the functions or the device refuses the pipeline.
    QuadRenderer(platform::GpuView& view, RendererDescription description,
                 const core::Clock& clock);

    /// The uniforms of this frame, `uniformSize` bytes, valid until the next call.
    virtual std::span<const std::byte> uniforms() = 0;

  private:
    const core::Clock& clock_;
    std::shared_ptr<platform::GpuDevice> device_;
    std::unique_ptr<platform::QuadPipeline> pipelineState_;
    QByteArray commandBufferLabel_;
    platform::Viewport viewport_;
    core::Instant startTime_;
    double pausedTime_ = 0;
};

} // namespace kestrel
