#include "platform/gpu/gpu_view.hpp"

#include "platform/gpu/gpu_view_objects.hpp"
#include "platform/gpu/qrhi_private.hpp"

#include <QBackingStore>
#include <QEvent>
#include <QPointer>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace platform {
namespace {

/// So many frames may fail one after another before the view gives up.
constexpr int patience = 3;
constexpr std::chrono::milliseconds retryAfter{100};

QPlatformBackingStoreRhiConfig configFor(const GpuDevice* device) {
    using Config = QPlatformBackingStoreRhiConfig;
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

/// Gives a window that is shown a new device. The toolkit's own way leaves the window's compositor
/// with what it has made on the device before, and nothing is composited any more.
void replaceBackingStore(QWidget& window, const QPlatformBackingStoreRhiConfig& config) {
    QTLWExtra* const top = QWidgetPrivate::get(&window)->maybeTopData();
    if (top == nullptr || top->backingStore == nullptr || window.windowHandle() == nullptr) {
        return;
    }
    delete std::exchange(top->backingStore, nullptr); // first: one device at a time on a window
    top->backingStore = new QBackingStore(window.windowHandle()); // owned by the window
    top->backingStore->handle()->setRhiConfig(config);
    if (top->repaintManager != nullptr) {
        top->repaintManager->setBackingStore(top->backingStore);
    }
    window.update();
}

FrameResult toFrameResult(QRhi::FrameOpResult result) {
    switch (result) {
    case QRhi::FrameOpSuccess:
        return FrameResult::success;
    case QRhi::FrameOpDeviceLost:
        return FrameResult::deviceLost;
    default:
        return FrameResult::error;
    }
}

} // namespace

class GpuViewPrivate : public QWidgetPrivate {
    Q_DECLARE_PUBLIC(GpuView)

  public:
    explicit GpuViewPrivate(const QPlatformBackingStoreRhiConfig& config) : config_(config) {
        if (config.isEnabled()) {
            renderToTexture = true;
        }
    }
    QPlatformBackingStoreRhiConfig rhiConfig() const override { return config_; }
    QRhiTexture* texture() const override {
        const auto& objects = q_func()->objects_;
        return objects != nullptr ? objects->encodedTexture() : nullptr;
    }
    QImage grabFramebuffer() override { return q_func()->grabFramebuffer(); }

  private:
    QPlatformBackingStoreRhiConfig config_;
};

GpuView::GpuView(QWidget* parent, std::shared_ptr<GpuDevice> device)
    : QWidget(*new GpuViewPrivate(configFor(device.get())), parent, {}),
      device_(std::move(device)),
      pacer_([this] {
          isFrameDue_ = true;
          update();
      }) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    if (configFor(device_.get()).isEnabled()) {
        static_cast<GpuViewPrivate*>(QWidgetPrivate::get(this))->setRenderToTexture();
    }
    headlessScale_ = devicePixelRatio();
    followWindow();
}

GpuView::~GpuView() {
    releaseObjects();
}

bool GpuView::isHeadless() const {
    return device_ != nullptr && device_->rhi() != nullptr;
}

QRhi* GpuView::currentRhi() const {
    if (isHeadless()) {
        return device_->rhi();
    }
    const QWidget* const top = window();
    if (device_ == nullptr || top->backingStore() == nullptr ||
        top->backingStore()->handle() == nullptr) {
        return nullptr;
    }
    return top->backingStore()->handle()->rhi();
}

void GpuView::setDelegate(GpuViewDelegate* delegate) {
    delegate_ = delegate;
    announcedSize_ = {};
    updatePacing();
    if (delegate_ != nullptr) {
        drawAhead();
    }
}

void GpuView::setColorSpace(DrawableColorSpace colorSpace) {
    if (colorSpace_ != colorSpace) {
        colorSpace_ = colorSpace;
        setNeedsDisplay();
    }
}

void GpuView::setShader(std::optional<Shader> shader) {
    if (shader_ != shader) {
        shader_ = std::move(shader);
        if (objects_ != nullptr) {
            objects_->setShader(shader_);
        }
        setNeedsDisplay();
    }
}

void GpuView::setPreferredFramesPerSecond(int framesPerSecond) {
    pacer_.setFramesPerSecond(framesPerSecond);
}

void GpuView::setPaused(bool isPaused) {
    if (isPaused_ != isPaused) {
        isPaused_ = isPaused;
        isFrameDue_ = false;
        updatePacing();
    }
}

void GpuView::setNeedsDisplay() {
    needsFrame_ = true;
    update();
}

QSize GpuView::drawableSize() const {
    // Asking for the ratio looks at all screens, too much for every frame where nothing changes it.
    const qreal scale = isHeadless() ? headlessScale_ : devicePixelRatio();
    return (QSizeF(size()) * scale).toSize().expandedTo(QSize(1, 1));
}

void GpuView::setFrameResultFilter(std::function<FrameResult(FrameResult)> filter) {
    frameResultFilter_ = std::move(filter);
}

bool GpuView::addResources(Resources& resources) {
    resources_.push_back(&resources);
    QRhi* const rhi = currentRhi();
    if (rhi == nullptr || !ensureObjects(rhi)) {
        return true; // the first frame will tell
    }
    return resources.prepare({rhi, objects_->renderPass(), nullptr});
}

void GpuView::removeResources(Resources& resources) {
    std::erase(resources_, &resources);
}

bool GpuView::ensureObjects(QRhi* rhi) {
    if (objects_ != nullptr && objects_->rhi() == rhi && objects_->size() == drawableSize()) {
        return true;
    }
    if (objects_ != nullptr && objects_->rhi() != rhi) {
        releaseObjects();
    }
    if (objects_ == nullptr) {
        objects_ = std::make_unique<Objects>(rhi);
        objects_->setShader(shader_);
        // The device may go away under us, with its window.
        rhi->addCleanupCallback([view = QPointer(this)](QRhi* gone) {
            if (view != nullptr && view->objects_ != nullptr && view->objects_->rhi() == gone) {
                view->releaseObjects();
            }
        });
    }
    needsFrame_ = true;
    return objects_->resize(drawableSize());
}

void GpuView::releaseObjects() {
    for (Resources* const resources : resources_) {
        resources->release();
    }
    objects_.reset();
    needsFrame_ = true;
}

bool GpuView::drawNow() {
    needsFrame_ = true;
    return isHeadless() && drawFrame();
}

bool GpuView::drawFrame() {
    QRhi* const rhi = currentRhi();
    if (rhi == nullptr || isEmpty_) {
        return false;
    }
    const FrameResult result = ensureObjects(rhi) ? recordFrame(rhi) : FrameResult::error;
    if (result != FrameResult::success) {
        frameFailed(result);
        return false;
    }
    failedFrames_ = 0;
    needsFrame_ = false;
    isFrameDue_ = false;
    ++frameCount_;
    return true;
}

FrameResult GpuView::recordFrame(QRhi* rhi) {
    const auto filtered = [this](QRhi::FrameOpResult result) {
        const FrameResult outcome = toFrameResult(result);
        return frameResultFilter_ ? frameResultFilter_(outcome) : outcome;
    };
    if (delegate_ != nullptr && announcedSize_ != drawableSize()) {
        announcedSize_ = drawableSize();
        delegate_->drawableSizeWillChange(*this, announcedSize_);
    }
    QRhiCommandBuffer* commands = nullptr;
    const QRhi::FrameOpResult begun = rhi->beginOffscreenFrame(&commands);
    FrameResult result = filtered(begun);
    bool isRefused = false;
    if (result == FrameResult::success) {
        objects_->beginFrame(commands);
        const GpuContext context{rhi, objects_->renderPass(), commands};
        for (Resources* const resources : resources_) {
            isRefused = isRefused || !resources->prepare(context);
        }
        if (!isRefused) {
            if (delegate_ != nullptr) {
                delegate_->draw(*this);
            }
            objects_->endFrame({colorSpace_, palette().color(QPalette::Window), rhi->isYUpInNDC()});
        }
    }
    if (begun == QRhi::FrameOpSuccess) {
        const FrameResult ended = filtered(rhi->endOffscreenFrame());
        result = result == FrameResult::success ? ended : result;
    }
    if (isRefused) {
        // What the device refuses once it refuses always.
        failedFrames_ = patience;
        return FrameResult::error;
    }
    return result;
}

void GpuView::frameFailed(FrameResult result) {
    ++failedFrames_;
    // Later: the window may be in the middle of painting with the textures of now.
    QMetaObject::invokeMethod(
        this, [this, result] { recover(result); }, Qt::QueuedConnection);
}

void GpuView::recover(FrameResult result) {
    if (failedFrames_ > patience) {
        becomeEmpty();
        return;
    }
    if (result == FrameResult::deviceLost) {
        replaceDevice();
    }
    if (failedFrames_ == 0 || isHeadless() || !isVisible()) {
        return;
    }
    if (hasCurrentPicture()) {
        update(); // once more; until then the window shows the frame before
    } else {
        // Without a texture the window would show black here, so step aside until the next try.
        hide();
        QTimer::singleShot(retryAfter, this, [this] {
            if (!isEmpty_) {
                show();
            }
        });
    }
}

void GpuView::becomeEmpty() {
    isEmpty_ = true;
    updatePacing();
    releaseObjects();
    hide();
}

void GpuView::replaceDevice() {
    if (isHeadless()) {
        releaseObjects();
        return;
    }
    const auto views = window()->findChildren<GpuView*>();
    for (GpuView* const view : views) {
        view->releaseObjects();
    }
    replaceBackingStore(*window(), configFor(device_.get()));
    for (GpuView* const view : views) {
        view->drawAhead();
    }
}

GpuRenderPass* GpuView::beginRenderPass(const QByteArray& commandBufferLabel,
                                        const QByteArray& renderEncoderLabel) {
    commandBufferLabel_ = commandBufferLabel;
    renderEncoderLabel_ = renderEncoderLabel;
    return objects_ != nullptr ? objects_->beginPass(commandBufferLabel, renderEncoderLabel)
                               : nullptr;
}

QImage GpuView::grabFramebuffer() {
    if (objects_ == nullptr && !isHeadless() && isVisible()) {
        drawFrame();
    }
    QImage image = objects_ != nullptr ? objects_->readEncoded() : QImage();
    image.setDevicePixelRatio(devicePixelRatio());
    return image;
}

QImage GpuView::grabDrawable() {
    return objects_ != nullptr ? objects_->readDrawable() : QImage();
}

bool GpuView::hasCurrentPicture() const {
    return objects_ != nullptr && objects_->rhi() == currentRhi() && objects_->hasPicture() &&
           objects_->size() == drawableSize();
}

void GpuView::paintEvent(QPaintEvent* /*event*/) {
    if (!isHeadless() && (needsFrame_ || isFrameDue_ || !hasCurrentPicture())) {
        drawFrame();
    }
}

void GpuView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    drawAhead();
}

// The window collects the textures before it lets the widgets paint, so what appears or gets
// another size draws at once.
void GpuView::drawAhead() {
    needsFrame_ = true;
    if (isVisible() && !isHeadless()) {
        drawFrame();
    }
    update();
}

bool GpuView::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::WindowAboutToChangeInternal:
        releaseObjects();
        formerStore_ = window()->backingStore();
        break;
    case QEvent::ParentChange:
        followWindow();
        updatePacing();
        break;
    case QEvent::WindowChangeInternal:
        if (window()->backingStore() == formerStore_ && !isHeadless()) {
            // Still the same window: compositing has met a lost device.
            QMetaObject::invokeMethod(
                this,
                [this, rhi = currentRhi()] {
                    if (rhi == currentRhi()) {
                        replaceDevice();
                    }
                },
                Qt::QueuedConnection);
        }
        [[fallthrough]];
    case QEvent::Show:
        followWindow();
        if (!hasCurrentPicture()) {
            drawAhead(); // else a view that pauses would jump in time
        }
        updatePacing();
        break;
    case QEvent::Hide:
        updatePacing();
        break;
    case QEvent::PaletteChange:
    case QEvent::ScreenChangeInternal:
        setNeedsDisplay();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void GpuView::followWindow() {
    if (followedWindow_ != window()) {
        if (followedWindow_ != nullptr) {
            followedWindow_->removeEventFilter(this);
        }
        followedWindow_ = window();
        followedWindow_->installEventFilter(this);
    }
}

bool GpuView::eventFilter(QObject* object, QEvent* event) {
    if (object == followedWindow_) {
        switch (event->type()) {
        case QEvent::WindowStateChange:
        case QEvent::Show:
        case QEvent::Hide:
            updatePacing();
            break;
        default:
            break;
        }
    }
    return QWidget::eventFilter(object, event);
}

void GpuView::updatePacing() {
    const bool isOnScreen = isVisible() && !window()->isMinimized();
    if (!isPaused_ && delegate_ != nullptr && !isEmpty_ && !isHeadless() && device_ != nullptr &&
        isOnScreen) {
        pacer_.start();
    } else {
        pacer_.stop();
    }
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

void GpuHost::install(QWidget& window) {
    if (GpuDevice::systemDefault() != nullptr &&
        window.findChild<GpuHost*>(QString(), Qt::FindDirectChildrenOnly) == nullptr) {
        new GpuHost(&window); // owned by the window
    }
}

} // namespace platform
