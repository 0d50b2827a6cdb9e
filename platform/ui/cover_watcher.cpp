#include "platform/ui/cover_watcher.hpp"

#include <QtGui/qtguiglobal.h>

#if QT_CONFIG(xcb)

#include "core/observable.hpp"

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <utility>

namespace platform {
namespace {

struct Visibility {
    xcb_window_t window;
    bool isCovered;
};

/// Sees what the X server says of all windows; lives as long as the program.
class CoverWatcher final : public QAbstractNativeEventFilter {
  public:
    static CoverWatcher& shared() {
        static CoverWatcher watcher;
        return watcher;
    }

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) override {
        if (type == "xcb_generic_event_t") {
            const auto* const event = static_cast<const xcb_generic_event_t*>(message);
            if ((event->response_type & 0x7F) == XCB_VISIBILITY_NOTIFY) {
                const auto* const told =
                    reinterpret_cast<const xcb_visibility_notify_event_t*>(event);
                changes.notify({told->window, told->state == XCB_VISIBILITY_FULLY_OBSCURED});
            }
        }
        return false;
    }

    core::ObserverList<Visibility> changes;
};

/// Has the server tell, beside all that the toolkit asks it for.
void askFor(xcb_connection_t* connection, xcb_window_t window) {
    xcb_get_window_attributes_reply_t* const reply = xcb_get_window_attributes_reply(
        connection, xcb_get_window_attributes(connection, window), nullptr);
    if (reply != nullptr) {
        const std::uint32_t mask = reply->your_event_mask | XCB_EVENT_MASK_VISIBILITY_CHANGE;
        xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &mask);
        std::free(reply);
    }
}

} // namespace

core::Subscription observeWindowCover(const QWindow& window,
                                      std::function<void(bool isCovered)> callback) {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (QGuiApplication::platformName() != QLatin1String("xcb") || x11 == nullptr ||
        window.handle() == nullptr) {
        return {};
    }
    CoverWatcher& watcher = CoverWatcher::shared();
    qGuiApp->installNativeEventFilter(&watcher); // once, however often it is asked to
    const auto own = static_cast<xcb_window_t>(window.winId());
    askFor(x11->connection(), own);
    return watcher.changes.add([own, tell = std::move(callback)](const Visibility& change) {
        if (change.window == own) {
            tell(change.isCovered);
        }
    });
}

} // namespace platform

#else

namespace platform {

core::Subscription observeWindowCover(const QWindow& /*window*/,
                                      std::function<void(bool isCovered)> /*callback*/) {
    return {};
}

} // namespace platform

#endif
