#pragma once

#include "platform/gpu/gpu_view.hpp"
#include "platform/gpu/shader_library.hpp"

#include <QByteArray>
#include <QImage>
#include <QPointer>

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace platform {

/// The rectangle of the drawable that is drawn to, in pixels, and the range of depths. A plain
/// value.
struct Viewport {
    double originX = 0;
    double originY = 0;
    double width = 0;
    double height = 0;
    double znear = 0;
    double zfar = 1;
    friend bool operator==(const Viewport&, const Viewport&) = default;
};

/// What a quad pipeline is made of. A plain value.
struct QuadPipelineDescriptor {
    QByteArray label;
    /// Gets the corners as "vec2" at vertex input location 0. An unset function makes the creation
    /// of the pipeline fail.
    std::optional<ShaderFunction> vertexFunction;
    /// Gets the uniforms as a std140 block at binding 0 and the textures at bindings 1, 2 …; writes
    /// linear, premultiplied light.
    std::optional<ShaderFunction> fragmentFunction;
    std::size_t uniformSize = 0; ///< bytes, the size of the std140 block
    std::vector<QImage>
        textures; ///< repeat beyond their edges; with all smaller sizes of themselves
};

/// One quad over the whole drawable, coloured by a fragment function: the pipeline state of every
/// renderer. Its GPU objects follow the view's device and come back when that is replaced; they go
/// with the view. Main thread.
class QuadPipeline final : public GpuView::Resources {
  public:
    static constexpr int vertexCount = 4;

    /// Throws `GpuError` when a function is unset or the device refuses the pipeline.
    QuadPipeline(GpuView& view, QuadPipelineDescriptor descriptor);
    ~QuadPipeline() override;

    /// Draws the quad as a triangle strip in the pass that is open; `uniforms` has the size that
    /// the descriptor says. Returns false when the device has no objects for it. No allocation.
    bool draw(GpuRenderPass& pass, const Viewport& viewport, std::span<const std::byte> uniforms);

    [[nodiscard]] const QByteArray& label() const { return descriptor_.label; }

    bool prepare(const GpuContext& context) override;
    void release() override;

  private:
    struct Objects;
    QuadPipelineDescriptor descriptor_;
    std::unique_ptr<Objects> objects_;
    QPointer<GpuView> view_;
};

} // namespace platform
