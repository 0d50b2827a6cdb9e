#include "platform/gpu/gpu_view.hpp"

#include "platform/gpu/internal/gpu_view_objects.hpp"
#include "platform/gpu/qrhi_private.hpp"

#include <QEvent>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace platform {
namespace {

/// So many frames may fail one after another before the view gives up.
constexpr int patience = 3;
constexpr std::chrono::milliseconds retryAfter{100};

} // namespace

GpuView::GpuView(QWidget* parent, std::shared_ptr<GpuDevice> device)
    : CompositedWidget(parent, device.get()), device_(std::move(device)), pacer_([this] {
          isFrameDue_ = true;
          update();
      }) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    retry_.setSingleShot(true);
    connect(&retry_, &QTimer::timeout, this, &GpuView::retry);
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
    return device_ != nullptr ? windowDevice() : nullptr;
}

QRhiTexture* GpuView::picture() const {
    return objects_ != nullptr ? objects_->encodedTexture() : nullptr;
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

bool GpuView::drawFrame(QRhiCommandBuffer* running) {
    QRhi* const rhi = currentRhi();
    if (rhi == nullptr || state_ == State::failed) {
        setState(state_); // nothing may be left to composite
        return false;
    }
    const FrameResult result = ensureObjects(rhi) ? recordFrame(*rhi, running) : FrameResult::error;
    if (result != FrameResult::success) {
        frameFailed(result);
        return false;
    }
    failedFrames_ = 0;
    needsFrame_ = false;
    isFrameDue_ = false;
    ++frameCount_;
    setState(State::showing);
    return true;
}

FrameResult GpuView::recordFrame(QRhi& rhi, QRhiCommandBuffer* running) {
    if (delegate_ != nullptr && announcedSize_ != drawableSize()) {
        announcedSize_ = drawableSize();
        delegate_->drawableSizeWillChange(*this, announcedSize_);
    }
    QRhiCommandBuffer* commands = running;
    FrameResult result = FrameResult::success;
    if (running == nullptr) {
        result = device_->beginFrame(rhi, commands);
    }
    if (result != FrameResult::success) {
        return result;
    }
    const bool isRefused = !record(rhi, commands);
    if (running == nullptr) {
        result = device_->endFrame(rhi);
    }
    if (isRefused) {
        // What the device refuses once it refuses always.
        failedFrames_ = patience;
        return FrameResult::error;
    }
    return result;
}

/// False when the device refuses a resource.
bool GpuView::record(QRhi& rhi, QRhiCommandBuffer* commands) {
    objects_->beginFrame(commands);
    const GpuContext context{&rhi, objects_->renderPass(), commands};
    for (Resources* const resources : resources_) {
        if (!resources->prepare(context)) {
            return false;
        }
    }
    if (delegate_ != nullptr) {
        delegate_->draw(*this);
    }
    objects_->endFrame({colorSpace_, palette().color(QPalette::Window), rhi.isYUpInNDC()});
    return true;
}

void GpuView::setState(State state) {
    state_ = state;
    setComposited(state_ != State::failed && hasCurrentPicture());
    updatePacing();
}

void GpuView::frameFailed(FrameResult result) {
    ++failedFrames_;
    failure_ = result;
    setState(State::retrying);
    if (isHeadless()) {
        retry();
    } else {
        // Later: the window may be in the middle of painting with the textures of now.
        const bool isOver = failedFrames_ > patience || result == FrameResult::deviceLost;
        retry_.start(isOver ? std::chrono::milliseconds(0) : retryAfter);
    }
}

void GpuView::retry() {
    if (failedFrames_ > patience) {
        setState(State::failed);
        releaseObjects();
    } else if (failure_ == FrameResult::deviceLost) {
        replaceDevice();
    } else {
        drawAhead();
    }
}

/// What has failed before says nothing about another window.
void GpuView::startOver() {
    retry_.stop();
    failedFrames_ = 0;
    setState(State::waiting);
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
    replaceWindowDevice();
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

void GpuView::paintPicture(QRhiCommandBuffer* running) {
    const bool isDue = needsFrame_ || isFrameDue_ || !hasCurrentPicture();
    if (!isHeadless() && isDue && !retry_.isActive()) {
        drawFrame(running);
    }
}

void GpuView::resizeEvent(QResizeEvent* event) {
    CompositedWidget::resizeEvent(event);
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
        if (!hasCurrentPicture() || state_ == State::retrying) {
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
    return CompositedWidget::event(event);
}

void GpuView::followWindow() {
    if (followedWindow_ != window()) {
        if (followedWindow_ != nullptr) {
            followedWindow_->removeEventFilter(this);
        }
        followedWindow_ = window();
        followedWindow_->installEventFilter(this);
        startOver();
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
    return CompositedWidget::eventFilter(object, event);
}

void GpuView::updatePacing() {
    const bool isOnScreen = isVisible() && !window()->isMinimized();
    if (state_ == State::showing && !isPaused_ && delegate_ != nullptr && !isHeadless() &&
        isOnScreen) {
        pacer_.start();
    } else {
        pacer_.stop();
    }
}

} // namespace platform
