#include "shaders/about_sample_view.hpp"

#include <QEvent>

#include <exception>

namespace kestrel {

AboutSampleView::AboutSampleView(const core::Clock& clock)
    : GpuView(nullptr, platform::GpuDevice::systemDefault()), clock_(clock) {
    setColorSpace(platform::DrawableColorSpace::extendedLinearDisplayP3);
    setPaused(false);
}

AboutSampleView::~AboutSampleView() {
    setDelegate(nullptr);
}

bool AboutSampleView::event(QEvent* event) {
    const bool isHandled = GpuView::event(event);
    if (event->type() == QEvent::ParentChange && parentWidget() != nullptr) {
        viewDidMoveToSuperview();
    }
    return isHandled;
}

void AboutSampleView::viewDidMoveToSuperview() {
    setDelegate(nullptr);
    try {
        renderer_ = std::make_unique<AboutRenderer>(*this, clock_);
    } catch (const std::exception&) {
        renderer_.reset(); // an empty view
    }
    setDelegate(renderer_.get());
    setVisible(renderer_ != nullptr);
}

} // namespace kestrel
