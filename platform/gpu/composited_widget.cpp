#include "platform/gpu/composited_widget.hpp"

#include "platform/gpu/qrhi_private.hpp"

#if LARKVOX_HAS_RHI_WIDGET

// This half has been read, not compiled: the machines that build us have Qt 6.4.

namespace platform {
namespace {

QRhiWidget::Api apiOf(const GpuDevice& device) {
    switch (device.api()) {
    case GpuApi::vulkan:
        return QRhiWidget::Api::Vulkan;
    case GpuApi::metal:
        return QRhiWidget::Api::Metal;
    default:
        return QRhiWidget::Api::OpenGL;
    }
}

} // namespace

CompositedWidget::CompositedWidget(QWidget* parent, const GpuDevice* device) : QRhiWidget(parent) {
    setApi(device != nullptr && device->rhi() == nullptr ? apiOf(*device) : Api::Null);
}

QRhi* CompositedWidget::windowDevice() const {
    return api() != Api::Null ? rhi() : nullptr;
}

void CompositedWidget::setComposited(bool /*isComposited*/) {
    update(); // without a picture it shows the ground
}

void CompositedWidget::replaceWindowDevice() {} // the toolkit does

void CompositedWidget::render(QRhiCommandBuffer* commands) {
    paintPicture(commands);
    if (QRhiTexture* const drawn = picture()) {
        QRhiResourceUpdateBatch* const updates = rhi()->nextResourceUpdateBatch();
        updates->copyTexture(colorTexture(), drawn);
        commands->resourceUpdate(updates);
    } else {
        commands->beginPass(renderTarget(), palette().color(QPalette::Window), {1.0F, 0});
        commands->endPass();
    }
}

GpuHost::GpuHost(QWidget* window) : QRhiWidget(window) {
    setApi(apiOf(*GpuDevice::systemDefault()));
    setFixedSize(0, 0);
    hide();
}

} // namespace platform

#else

#include <QBackingStore>
#include <QWindow>

#include <utility>

namespace platform {
namespace {

using Config = QPlatformBackingStoreRhiConfig;

/// Nothing without a device, and for one that draws into memory.
Config configFor(const GpuDevice* device) {
    if (device == nullptr || device->rhi() != nullptr) {
        return {};
    }
    switch (device->api()) {
    case GpuApi::vulkan:
        return Config(Config::Vulkan);
    case GpuApi::metal:
        return Config(Config::Metal);
    default:
        return Config(Config::OpenGL);
    }
}

} // namespace

class CompositedWidgetPrivate : public QWidgetPrivate {
    Q_DECLARE_PUBLIC(CompositedWidget)

  public:
    explicit CompositedWidgetPrivate(const Config& config) : config_(config) {
        renderToTexture = config.isEnabled();
    }

    QPlatformBackingStoreRhiConfig rhiConfig() const override { return config_; }
    QRhiTexture* texture() const override { return q_func()->picture(); }
    QImage grabFramebuffer() override { return q_func()->grabPicture(); }
    void setComposited(bool isComposited) { renderToTexture = isComposited; }
    [[nodiscard]] bool isComposited() const { return renderToTexture; }
    static CompositedWidgetPrivate& of(CompositedWidget& widget) {
        return static_cast<CompositedWidgetPrivate&>(*QWidgetPrivate::get(&widget));
    }

  private:
    Config config_;
};

CompositedWidget::CompositedWidget(QWidget* parent, const GpuDevice* device)
    : QWidget(*new CompositedWidgetPrivate(configFor(device)), parent, {}) {
    if (configFor(device).isEnabled()) {
        QWidgetPrivate::get(this)->setRenderToTexture();
    }
}

QRhi* CompositedWidget::windowDevice() const {
    const QBackingStore* const store = window()->backingStore();
    return store != nullptr && store->handle() != nullptr ? store->handle()->rhi() : nullptr;
}

void CompositedWidget::setComposited(bool isComposited) {
    CompositedWidgetPrivate& own = CompositedWidgetPrivate::of(*this);
    if (!own.rhiConfig().isEnabled() || own.isComposited() == isComposited) {
        return;
    }
    // The place itself has to be painted anew, which is asked for as a widget without a texture:
    // with the ground now, or with the hole that the texture is seen through.
    own.setComposited(false);
    update();
    own.setComposited(isComposited);
}

/// The toolkit's own way leaves the window's compositor with what it has made on the device before,
/// and nothing is composited any more.
void CompositedWidget::replaceWindowDevice() {
    QWidget& top = *window();
    QTLWExtra* const extra = QWidgetPrivate::get(&top)->maybeTopData();
    if (extra == nullptr || extra->backingStore == nullptr || top.windowHandle() == nullptr) {
        return;
    }
    delete std::exchange(extra->backingStore, nullptr); // first: one device at a time on a window
    extra->backingStore = new QBackingStore(top.windowHandle()); // owned by the window
    extra->backingStore->handle()->setRhiConfig(CompositedWidgetPrivate::of(*this).rhiConfig());
    if (extra->repaintManager != nullptr) {
        extra->repaintManager->setBackingStore(extra->backingStore);
    }
    top.update();
}

class GpuHostPrivate : public QWidgetPrivate {
  public:
    QPlatformBackingStoreRhiConfig rhiConfig() const override {
        return configFor(GpuDevice::systemDefault().get());
    }
};

GpuHost::GpuHost(QWidget* window) : QWidget(*new GpuHostPrivate, window, {}) {
    setFixedSize(0, 0);
    hide();
}

} // namespace platform

#endif

namespace platform {

void GpuHost::install(QWidget& window) {
    if (GpuDevice::systemDefault() != nullptr &&
        window.findChild<GpuHost*>(QString(), Qt::FindDirectChildrenOnly) == nullptr) {
        new GpuHost(&window); // owned by the window
    }
}

} // namespace platform
