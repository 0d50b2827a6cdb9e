#include "platform/ui/key_window.hpp"

#include "core/observable.hpp"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <utility>

namespace platform {
namespace {

/// Sees the events of all windows; lives as long as the application object.
class KeyWindowWatcher final : public QObject {
  public:
    static KeyWindowWatcher& shared() {
        QCoreApplication* const application = QCoreApplication::instance();
        for (QObject* const child : application->children()) {
            if (auto* const watcher = dynamic_cast<KeyWindowWatcher*>(child)) {
                return *watcher;
            }
        }
        return *new KeyWindowWatcher(application);
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        const QEvent::Type type = event->type();
        if (type == QEvent::WindowActivate || type == QEvent::WindowDeactivate) {
            // Widgets inside of the window hear of it, too.
            if (object->isWidgetType() && static_cast<QWidget*>(object)->isWindow()) {
                (type == QEvent::WindowActivate ? becomingKey : resigningKey).notify(object);
            }
        }
        return false;
    }

    core::ObserverList<QObject*> becomingKey;
    core::ObserverList<QObject*> resigningKey;

  private:
    explicit KeyWindowWatcher(QCoreApplication* application) : QObject(application) {
        application->installEventFilter(this);
    }
};

} // namespace

core::Subscription observeWindowBecomingKey(std::function<void(QObject*)> callback) {
    return KeyWindowWatcher::shared().becomingKey.add(std::move(callback));
}

core::Subscription observeWindowResigningKey(std::function<void(QObject*)> callback) {
    return KeyWindowWatcher::shared().resigningKey.add(std::move(callback));
}

} // namespace platform
