#pragma once

#include "core/main_queue.hpp"
#include "platform/system/wake_descriptor.hpp"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

namespace platform {

/// Drains a main queue from Qt's event loop: when it is woken, and before every input event, so
/// that an event handler sees all that was posted before the event. Make one at start-up, after the
/// application object; a plug-in inside of a host without Qt's loop lets the host's loop watch the
/// `WakeDescriptor` in its place. Main thread.
class MainQueueDriver final : public QObject {
    Q_OBJECT

  public:
    explicit MainQueueDriver(core::MainQueue& queue = core::MainQueue::shared());
    ~MainQueueDriver() override;

    /// For event loops other than Qt's.
    [[nodiscard]] int descriptor() const { return wake_.descriptor(); }

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
