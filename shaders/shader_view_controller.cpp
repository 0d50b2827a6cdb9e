#include "shaders/shader_view_controller.hpp"

#include "platform/ui/key_window.hpp"
#include "shaders/pin_to_superview.hpp"

#include <exception>

namespace kestrel {

ShaderViewController::ShaderViewController(QWidget* view, const core::Clock& clock)
    : ViewController(view), clock_(clock) {}

ShaderViewController::~ShaderViewController() {
    release();
}

void ShaderViewController::viewWillAppear() {
    ViewController::viewWillAppear();
    if (metalKitView_ != nullptr) {
        return;
    }
    metalKitView_ = new platform::GpuView(view(), platform::GpuDevice::systemDefault());
    pinToSuperview(*metalKitView_, view());
    metalKitView_->lower();
    metalKitView_->setColorSpace(platform::DrawableColorSpace::extendedLinearSRGB);
    metalKitView_->setPreferredFramesPerSecond(60);
    try {
        renderer_ = makeRenderer(*metalKitView_);
    } catch (const std::exception&) {
        return; // an empty view: nothing is drawn and what is behind it shows
    }
    metalKitView_->setDelegate(renderer_.get());
    metalKitView_->show();
}

void ShaderViewController::viewDidAppear() {
    ViewController::viewDidAppear();
    if (metalKitView_ != nullptr) {
        metalKitView_->setPaused(false);
    }
    becomingKey_ =
        platform::observeWindowBecomingKey([this](QObject* object) { handleDidBecomeKey(object); });
    resigningKey_ = platform::observeWindowResigningKey(
        [this](QObject* object) { handleDidResignKey(object); });
    if (window() != nullptr && !window()->isActiveWindow()) {
        pause(notKey); // as if it had just resigned
    }
}

void ShaderViewController::viewDidDisappear() {
    ViewController::viewDidDisappear();
    release();
}

void ShaderViewController::release() {
    if (metalKitView_ != nullptr) {
        metalKitView_->setPaused(true);
        metalKitView_->setDelegate(nullptr);
    }
    renderer_.reset();
    pauseReasons_ = 0;
    delete metalKitView_;
}

bool ShaderViewController::isOwnWindow(const QObject* object) const {
    const auto* const widget = qobject_cast<const QWidget*>(object);
    return widget != nullptr && widget->isWindow() && widget == window();
}

void ShaderViewController::handleDidBecomeKey(QObject* object) {
    if (isOwnWindow(object)) {
        resume(notKey);
    }
}

void ShaderViewController::handleDidResignKey(QObject* object) {
    if (isOwnWindow(object)) {
        pause(notKey);
    }
}

void ShaderViewController::windowDidHideFromSight() {
    if ((pauseReasons_ & outOfSight) == 0) {
        pause(outOfSight);
    }
}

void ShaderViewController::windowDidReturnToSight() {
    resume(outOfSight);
}

/// A second reason joins the pause that there is. The same reason again begins the pause anew and
/// forgets its earlier part, as `QuadRenderer::pauseTime` says.
void ShaderViewController::pause(PauseReason reason) {
    const bool isOtherPause = pauseReasons_ != 0 && (pauseReasons_ & reason) == 0;
    pauseReasons_ |= reason;
    if (renderer_ != nullptr && !isOtherPause) {
        renderer_->pause();
    }
    if (metalKitView_ != nullptr) {
        metalKitView_->setPaused(true);
    }
}

void ShaderViewController::resume(PauseReason reason) {
    pauseReasons_ &= ~static_cast<unsigned>(reason);
    if (pauseReasons_ != 0) {
        return;
    }
    if (renderer_ != nullptr) {
        renderer_->resume();
    }
    if (metalKitView_ != nullptr) {
        metalKitView_->setPaused(false);
    }
}

} // namespace kestrel
