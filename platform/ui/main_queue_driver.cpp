#include "platform/ui/main_queue_driver.hpp"

#include "core/fatal.hpp"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <utility>

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
    case QEvent::ShortcutOverride: // comes before a shortcut, which a key press does not
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::InputMethod:
    case QEvent::NativeGesture:
        return true;
    default:
        return false;
    }
}

core::MainQueue& requireApplication(core::MainQueue& queue) {
    if (QCoreApplication::instance() == nullptr) {
        core::fatal("A MainQueueDriver is made before the application object; where there is none, "
                    "take platform::HostLoopDriver");
    }
    return queue;
}

} // namespace

MainQueueDriver::MainQueueDriver(core::MainQueue& queue)
    : queue_(requireApplication(queue)), notifier_(wake_.descriptor(), QSocketNotifier::Read) {
    connect(&notifier_, &QSocketNotifier::activated, this, [this] {
        wake_.reset();
        drain();
    });
    again_.setSingleShot(true);
    again_.setTimerType(Qt::PreciseTimer);
    connect(&again_, &QTimer::timeout, this, &MainQueueDriver::drain);
    QCoreApplication::instance()->installEventFilter(this);
    // A task that runs an event loop of its own, such as a dialog's, must not hold up the others:
    // while it runs nobody wakes us.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] {
                if (isDraining_) {
                    isDraining_ = false;
                    drain();
                }
            });
    queue_.addWaker(wake_);
}

MainQueueDriver::~MainQueueDriver() {
    queue_.removeWaker(wake_);
}

bool MainQueueDriver::eventFilter(QObject* /*object*/, QEvent* event) {
    if (isInput(event->type())) {
        drain();
    }
    return false; // not the base's, since this may be gone
}

void MainQueueDriver::drain() {
    const bool wasDraining = std::exchange(isDraining_, true);
    const QPointer<MainQueueDriver> self(this);
    const auto next = queue_.pump(budget);
    if (self == nullptr) {
        return; // a task has closed what this belongs to
    }
    switch (next) {
    case core::MainQueue::Next::now:
        wake_.wake(); // the rest after the events that wait
        break;
    case core::MainQueue::Next::soon:
        again_.start(core::MainQueue::pumpInterval);
        break;
    case core::MainQueue::Next::whenWoken:
        break;
    }
    isDraining_ = wasDraining;
}

} // namespace platform
