#pragma once

#include "platform/gpu/gpu_device.hpp"

#include <QtGlobal>

#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0)
#define LARKVOX_HAS_RHI_WIDGET 1
#include <QRhiWidget>
#else
#define LARKVOX_HAS_RHI_WIDGET 0
#include <QWidget>
#endif

#include <QImage>

#include <memory>

class QRhi;
class QRhiCommandBuffer;
class QRhiTexture;

namespace platform {

#if LARKVOX_HAS_RHI_WIDGET
using CompositedBase = QRhiWidget;
#else
using CompositedBase = QWidget;
#endif

/// A widget whose picture is a texture on the device that its window composites with. Everything
/// about it that depends on the toolkit's version is here: up to Qt 6.6 the window takes the
/// texture itself, by the toolkit's private interfaces; from Qt 6.7 on it is copied into that of
/// the public `QRhiWidget`. Main thread.
class CompositedWidget : public CompositedBase {
  protected:
    /// Composites with `device`. Null or a headless one makes it a plain widget.
    CompositedWidget(QWidget* parent, const GpuDevice* device);

    /// The device of the window; null as long as there is none.
    [[nodiscard]] QRhi* windowDevice() const;
    /// While it is not composited the widget paints nothing, and what is behind it shows through.
    void setComposited(bool isComposited);
    /// Gives the window a new device after the old one is lost. Nothing may be kept on that.
    void replaceWindowDevice();

    /// The toolkit paints. `running` is the device's frame that has begun already; null where there
    /// is none.
    virtual void paintPicture(QRhiCommandBuffer* running) = 0;
    /// What is composited, as large as the widget in pixels; null for nothing.
    [[nodiscard]] virtual QRhiTexture* picture() const { return nullptr; }
    /// The same for pictures of the window.
    [[nodiscard]] virtual QImage grabPicture() { return {}; }
    /// The device goes away.
    virtual void releasePicture() {}

#if LARKVOX_HAS_RHI_WIDGET
    void render(QRhiCommandBuffer* commands) final;
    void releaseResources() final {
        releasePicture();
    }
#else
    void paintEvent(QPaintEvent* /*event*/) final {
        paintPicture(nullptr);
    }

  private:
    friend class CompositedWidgetPrivate;
#endif
};

/// Makes a window composite with the GPU from the start, so that a `CompositedWidget` may join it
/// later without the window being made anew before the user's eyes. Put one into the window before
/// it is shown; it shows nothing itself. From then on every frame of the window is one of the GPU:
/// only for windows that have a view from the start or soon. Main thread.
class GpuHost : public CompositedBase {
    Q_OBJECT

  public:
    /// Does nothing on a machine without a device.
    static void install(QWidget& window);

  private:
    explicit GpuHost(QWidget* window);
};

} // namespace platform
