#pragma once

#include "platform/gpu/composited_widget.hpp"
#include "platform/gpu/frame_pacer.hpp"
#include "platform/gpu/shader.hpp"

#include <QColor>
#include <QImage>
#include <QPointer>
#include <QSize>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

class QBackingStore;
class QRhiRenderPassDescriptor;

namespace platform {

class GpuView;

/// Which linear light the drawable holds. Values below 0 and above 1 are allowed in both.
enum class DrawableColorSpace { extendedLinearSRGB, extendedLinearDisplayP3 };

/// Draws the frames of a view. Main thread.
class GpuViewDelegate {
  public:
    virtual ~GpuViewDelegate() = default;
    /// The drawable got another size (pixels). Called before the first frame, too.
    virtual void drawableSizeWillChange(GpuView& view, QSize pixels) = 0;
    /// Draws one frame by opening a pass and drawing in it; a frame without a pass shows what the
    /// frame before has shown.
    virtual void draw(GpuView& view) = 0;
};

/// What GPU objects are made with; `commandBuffer` is null outside of a frame. Main thread, and
/// only within the call that gives it.
struct GpuContext {
    QRhi* rhi;
    QRhiRenderPassDescriptor* renderPass;
    QRhiCommandBuffer* commandBuffer;
};

/// The pass of the frame that is being drawn. Main thread, and only within that frame.
struct GpuRenderPass {
    QRhiCommandBuffer* commandBuffer;
};

/// A widget whose picture is drawn by the GPU into a drawable of linear 16-bit-float RGBA and is
/// composited with the window's other widgets without a copy. A second small pass encodes the
/// drawable for the screen: converts its colour space, lays the premultiplied light over the
/// palette's `Window` colour, encodes sRGB and dithers into 8 bit.
///
/// It draws at `preferredFramesPerSecond` while it is not paused, is shown and has a delegate.
/// Without a device, or when the device fails for good, it is an empty widget: what is behind it
/// shows through. It comes back in another window. Main thread.
class GpuView : public CompositedWidget {
    Q_OBJECT

  public:
    /// GPU objects that follow the view's device.
    class Resources {
      public:
        virtual ~Resources() = default;
        /// Makes and uploads what is missing, before the pass of a frame (or, without a command
        /// buffer, as early as the device is known). False when the device refuses.
        virtual bool prepare(const GpuContext& context) = 0;
        /// Lets go of everything; the device is about to go away.
        virtual void release() = 0;
    };

    /// `device` may be null. A view of the system's default device has to have a parent; its window
    /// should hold a `GpuHost` if it is shown already.
    explicit GpuView(QWidget* parent, std::shared_ptr<GpuDevice> device);
    ~GpuView() override;

    [[nodiscard]] const std::shared_ptr<GpuDevice>& device() const { return device_; }

    /// Not owned; null takes the delegate away. It must take itself away before it is destroyed.
    /// Without one the view shows what it has shown last, at first its ground.
    void setDelegate(GpuViewDelegate* delegate);
    [[nodiscard]] GpuViewDelegate* delegate() const { return delegate_; }

    void setColorSpace(DrawableColorSpace colorSpace);
    [[nodiscard]] DrawableColorSpace colorSpace() const { return colorSpace_; }
    /// Applied to the drawable before it is encoded; nothing by default. A shader whose function is
    /// missing, or that the device refuses, leaves the picture as it is.
    void setShader(std::optional<Shader> shader);
    [[nodiscard]] const std::optional<Shader>& shader() const { return shader_; }

    void setPreferredFramesPerSecond(int framesPerSecond);
    [[nodiscard]] int preferredFramesPerSecond() const { return pacer_.framesPerSecond(); }

    /// A paused view draws only when it is asked to or when its size changes. Starts paused.
    void setPaused(bool isPaused);
    [[nodiscard]] bool isPaused() const { return isPaused_; }
    /// Draws one frame soon, paused or not.
    void setNeedsDisplay();

    /// The size of the drawable in pixels.
    [[nodiscard]] QSize drawableSize() const;
    /// True once the device has failed for good and the view has given up, until it comes into
    /// another window.
    [[nodiscard]] bool isEmpty() const { return state_ == State::failed; }

    /// Only while `draw` runs: opens the pass that draws into the drawable, cleared to nothing. The
    /// labels name the frame's commands and the pass in GPU debuggers. Null when there is none to
    /// be had.
    GpuRenderPass* beginRenderPass(const QByteArray& commandBufferLabel,
                                   const QByteArray& renderEncoderLabel = {});
    [[nodiscard]] const QByteArray& commandBufferLabel() const { return commandBufferLabel_; }
    [[nodiscard]] const QByteArray& renderEncoderLabel() const { return renderEncoderLabel_; }

    /// Draws a frame now, on a headless device only. False when it was skipped.
    bool drawNow();
    /// The encoded picture of the last frame, upright; null without one.
    [[nodiscard]] QImage grabFramebuffer();
    /// The drawable of the last frame, upright: linear, premultiplied, RGBA16F as 32-bit float.
    [[nodiscard]] QImage grabDrawable();
    /// Frames drawn since creation.
    [[nodiscard]] long frameCount() const { return frameCount_; }

    /// Registered resources are prepared before every frame and released with the device. Calls
    /// `prepare` at once where the device is known already, and returns what it says.
    bool addResources(Resources& resources);
    void removeResources(Resources& resources);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    struct Objects;

    /// Where it stands between its device and the screen.
    enum class State {
        waiting,  // for a device, or for the first picture on it
        showing,  // its pictures
        retrying, // a frame has failed; the one before stays where it still fits
        failed    // given up
    };

    void paintPicture(QRhiCommandBuffer* running) override;
    [[nodiscard]] QRhiTexture* picture() const override;
    [[nodiscard]] QImage grabPicture() override { return grabFramebuffer(); }
    void releasePicture() override { releaseObjects(); }

    [[nodiscard]] QRhi* currentRhi() const;
    bool ensureObjects(QRhi* rhi);
    bool drawFrame(QRhiCommandBuffer* running = nullptr);
    FrameResult recordFrame(QRhi& rhi, QRhiCommandBuffer* running);
    bool record(QRhi& rhi, QRhiCommandBuffer* commands);
    void drawAhead();
    void setState(State state);
    void frameFailed(FrameResult result);
    void retry();
    void startOver();
    void releaseObjects();
    void replaceDevice();
    void updatePacing();
    void followWindow();
    [[nodiscard]] bool isHeadless() const;
    [[nodiscard]] bool hasCurrentPicture() const;

    std::shared_ptr<GpuDevice> device_;
    GpuViewDelegate* delegate_ = nullptr;
    std::optional<Shader> shader_;
    DrawableColorSpace colorSpace_ = DrawableColorSpace::extendedLinearSRGB;
    FramePacer pacer_;
    bool isPaused_ = true;
    bool needsFrame_ = true;  // asked for
    bool isFrameDue_ = false; // by the pacer
    State state_ = State::waiting;
    QTimer retry_;
    FrameResult failure_ = FrameResult::success; // the latest
    qreal headlessScale_ = 1;                    // the device pixel ratio of the start
    int failedFrames_ = 0;
    long frameCount_ = 0;
    QSize announcedSize_;
    QByteArray commandBufferLabel_;
    QByteArray renderEncoderLabel_;
    std::vector<Resources*> resources_;
    std::unique_ptr<Objects> objects_;
    QPointer<QWidget> followedWindow_;
    const QBackingStore* formerStore_ = nullptr; // only compared
};

} // namespace platform
