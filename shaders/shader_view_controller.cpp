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
    delete metalKitView_;
}

bool ShaderViewController::isOwnWindow(const QObject* object) const {
    const auto* const widget = qobject_cast<const QWidget*>(object);
    return widget != nullptr && widget->isWindow() && widget == window();
}

void ShaderViewController::handleDidBecomeKey(QObject* object) {
    if (!isOwnWindow(object)) {
        return;
    }
    if (renderer_ != nullptr) {
        renderer_->resume();
    }
    if (metalKitView_ != nullptr) {
        metalKitView_->setPaused(false);
    }
}

void ShaderViewController::handleDidResignKey(QObject* object) {
    if (!isOwnWindow(object)) {
        return;
    }
    if (renderer_ != nullptr) {
        renderer_->pause();
    }
    if (metalKitView_ != nullptr) {
        metalKitView_->setPaused(true);
    }
}

// Out of sight counts as a pause of its own only when the window has not resigned key already, and
// ends only when it is key.

void ShaderViewController::windowDidHideFromSight() {
    if (renderer_ != nullptr && !renderer_->pauseTime) {
        renderer_->pause();
        metalKitView_->setPaused(true);
    }
}

void ShaderViewController::windowDidReturnToSight() {
    if (window() != nullptr && window()->isActiveWindow()) {
        handleDidBecomeKey(window());
    }
}

} // namespace kestrel
