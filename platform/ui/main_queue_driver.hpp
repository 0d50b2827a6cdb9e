#pragma once

#include "core/main_queue.hpp"
#include "platform/system/wake_descriptor.hpp"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

namespace platform {

/// Drains a main queue from Qt's event loop: when it is woken, and before every input event, so
/// that an event handler sees all that was posted before the event. Make one at start-up, after the
/// application object, without which the program stops; for a host's loop there is
/// `platform::HostLoopDriver`. A queue may have several drivers at once. Main thread.
class MainQueueDriver final : public QObject {
    Q_OBJECT

  public:
    explicit MainQueueDriver(core::MainQueue& queue = core::MainQueue::shared());
    ~MainQueueDriver() override;

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void drain();

    core::MainQueue& queue_;
    WakeDescriptor wake_;
    QSocketNotifier notifier_;
    QTimer again_; // after a burst, before the queue goes to sleep
    bool isDraining_ = false;
};

} // namespace platform
