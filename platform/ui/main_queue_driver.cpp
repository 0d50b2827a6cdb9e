#include "platform/ui/main_queue_driver.hpp"

#include <QCoreApplication>
#include <QEvent>

namespace platform {
namespace {

/// Tasks at a time, so that a flood of them cannot keep the interface from being painted.
constexpr std::size_t budget = 8192;

bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
        return true;
    default:
        return false;
    }
}

} // namespace

MainQueueDriver::MainQueueDriver(core::MainQueue& queue)
    : queue_(queue), notifier_(wake_.descriptor(), QSocketNotifier::Read) {
    connect(&notifier_, &QSocketNotifier::activated, this, [this] {
        wake_.reset();
        drain();
    });
    QCoreApplication::instance()->installEventFilter(this);
    queue_.setWaker(&wake_);
}

MainQueueDriver::~MainQueueDriver() {
    queue_.setWaker(nullptr);
}

bool MainQueueDriver::eventFilter(QObject* object, QEvent* event) {
    if (isInput(event->type())) {
        drain();
    }
    return QObject::eventFilter(object, event);
}

void MainQueueDriver::drain() {
    if (queue_.drain(budget)) {
        wake_.wake(); // the rest after the events that wait
    }
}

} // namespace platform
