#pragma once

#include "core/clock.hpp"
#include "platform/assets/bundle.hpp"
#include "platform/gpu/gpu_view.hpp"
#include "platform/gpu/quad_pipeline.hpp"

#include <QByteArray>
#include <QString>

#include <array>
#include <cstddef>
#include <exception>
#include <memory>
#include <optional>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

namespace kestrel {

/// What can keep a renderer from being made, beside errors of the GPU platform itself. Any thread.
class RendererError : public std::exception {
  public:
    enum class Case { noValidDevice };

    explicit RendererError(Case error) : error_(error) {}

    [[nodiscard]] Case error() const { return error_; }
    /// A sentence for the user, in the user's language.
    [[nodiscard]] QString localizedDescription() const;
    [[nodiscard]] const char* what() const noexcept override;

  private:
    Case error_;
};

/// Seconds after which all motion of this library's own visuals repeats: PERIOD in family.glsl.
inline constexpr double familyPeriod = 4096;

/// What differs from one renderer of this library to the next. A plain value.
struct RendererDescription {
    QByteArray pipelineLabel = "Shader Pipeline";
    QByteArray commandBufferLabel = {};
    QByteArray renderEncoderLabel = {};
    QString vertexFunctionName = QStringLiteral("quadVertexShader");
    QString fragmentFunctionName;
    std::vector<QImage> textures = {};
    /// Seconds after which the fragment function's motion repeats; the time is folded there before
    /// it becomes a float, which after weeks could not tell two frames apart. 0: it never repeats,
    /// and the function gets all seconds.
    double period = 0;
    /// Where the functions are looked up before this library's own bundle. Only read at creation.
    const platform::Bundle* bundle = nullptr;
};

/// Draws a quad over the whole view, coloured by a fragment function, and keeps the animation's
/// time: seconds since creation less all finished pauses. What the fragment function gets is the
/// matter of `UniformRenderer` and the classes derived from it. Main thread.
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
    /// The animation's time of now in seconds. It goes on during a pause, which is taken off when
    /// it ends.
    [[nodiscard]] double elapsedTime() const;
    /// The same, folded into 0 … `period` where there is one: what the fragment function gets.
    [[nodiscard]] float time() const;

    [[nodiscard]] const platform::GpuDevice& device() const { return *device_; }
    [[nodiscard]] const platform::Viewport& viewport() const { return viewport_; }
    [[nodiscard]] ViewSize viewSize() const;
    [[nodiscard]] static int vertexCount() { return platform::QuadPipeline::vertexCount; }

    void drawableSizeWillChange(platform::GpuView& view, QSize pixels) final;
    void draw(platform::GpuView& view) final;

  protected:
    /// `uniformSize` is the size in bytes of the fragment function's std140 block. Throws
    /// `RendererError` when the view has no device, and `platform::GpuError` when the bundles
    /// do not give the functions or the device refuses the pipeline.
    QuadRenderer(platform::GpuView& view, RendererDescription description, std::size_t uniformSize,
                 const core::Clock& clock);

    /// The uniforms of this frame, `uniformSize` bytes, valid until the next call.
    virtual std::span<const std::byte> uniformBytes() = 0;

    /// What folding takes off an elapsed time, in seconds. Other instants of the animation that the
    /// fragment function gets have to lose the same before they become floats.
    [[nodiscard]] double wholePeriods(double elapsed) const;

  private:
    const core::Clock& clock_;
    std::shared_ptr<platform::GpuDevice> device_;
    std::unique_ptr<platform::QuadPipeline> pipelineState_;
    QByteArray commandBufferLabel_;
    QByteArray renderEncoderLabel_;
    double period_;
    platform::Viewport viewport_;
    core::Instant startTime_;
    double pausedTime_ = 0;
};

/// A renderer whose fragment function gets a struct: `Values` has the layout of its std140 block.
/// Main thread.
template<class Values>
class UniformRenderer : public QuadRenderer {
  public:
    using Uniforms = Values;

    /// What the fragment function gets in a frame of now.
    [[nodiscard]] virtual Uniforms uniforms() const = 0;

  protected:
    static_assert(std::is_trivially_copyable_v<Values> && sizeof(Values) % 16 == 0);

    /// Throws as `QuadRenderer` does.
    UniformRenderer(platform::GpuView& view, RendererDescription description,
                    const core::Clock& clock)
        : QuadRenderer(view, std::move(description), sizeof(Values), clock) {}

  private:
    std::span<const std::byte> uniformBytes() final {
        uniforms_ = uniforms();
        return std::as_bytes(std::span(&uniforms_, 1));
    }

    Uniforms uniforms_{};
};

} // namespace kestrel
