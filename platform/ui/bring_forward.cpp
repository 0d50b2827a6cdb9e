#include "platform/ui/bring_forward.hpp"

#include "platform/system/sole_start.hpp"

#include <QGuiApplication>
#include <QSocketNotifier>
#include <QWidget>
#include <QWindow>

#include <cstdlib>

#if QT_CONFIG(xcb)
#include <algorithm>
#include <cstdint>
#include <memory>
#include <xcb/xcb.h>
#endif

namespace platform {
namespace {

constexpr const char* waylandVariable = "XDG_ACTIVATION_TOKEN";

#if QT_CONFIG(xcb)

/// Messages of an X11 client to the window manager and to whoever shows that a program starts.
class RootMessages {
  public:
    RootMessages(xcb_connection_t* connection, xcb_window_t window)
        : connection_(connection),
          window_(window),
          root_(xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root) {}

    /// The window comes to the desktop that the user is at.
    void moveToCurrentDesktop() {
        const std::unique_ptr<xcb_get_property_reply_t, void (*)(void*)> reply(
            xcb_get_property_reply(connection_,
                                   xcb_get_property(connection_, 0, root_,
                                                    atom("_NET_CURRENT_DESKTOP"), XCB_ATOM_CARDINAL,
                                                    0, 1),
                                   nullptr),
            &std::free);
        if (reply != nullptr && xcb_get_property_value_length(reply.get()) == 4) {
            xcb_client_message_event_t message = prepared("_NET_WM_DESKTOP", 32);
            message.data.data32[0] =
                *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
            message.data.data32[1] = byTheUser;
            send(message, toManager);
        }
    }

    /// The window manager may give the keyboard to it: this is the user's own wish, not that of a
    /// program which happens to run.
    void activate(xcb_timestamp_t time) {
        xcb_client_message_event_t message = prepared("_NET_ACTIVE_WINDOW", 32);
        message.data.data32[0] = byTheUser;
        message.data.data32[1] = time;
        send(message, toManager);
    }

    /// The other start will show no window: its pointer need not turn any longer.
    void endStart(const QByteArray& identifier) {
        const QByteArray text = "remove: ID=\"" + identifier + "\"";
        xcb_client_message_event_t message = prepared("_NET_STARTUP_INFO_BEGIN", 8);
        for (qsizetype i = 0; i <= text.size(); i += sizeof message.data.data8) { // with its end
            std::fill(std::begin(message.data.data8), std::end(message.data.data8), 0);
            const auto count = std::min(text.size() - i, qsizetype(sizeof message.data.data8));
            std::copy_n(text.begin() + i, count, message.data.data8);
            send(message, XCB_EVENT_MASK_PROPERTY_CHANGE);
            message.type = atom("_NET_STARTUP_INFO");
        }
    }

  private:
    static constexpr std::uint32_t byTheUser = 2;
    static constexpr std::uint32_t toManager =
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;

    xcb_atom_t atom(const char* name) {
        const std::unique_ptr<xcb_intern_atom_reply_t, void (*)(void*)> reply(
            xcb_intern_atom_reply(
                connection_,
                xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(qstrlen(name)), name),
                nullptr),
            &std::free);
        return reply != nullptr ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
    xcb_client_message_event_t prepared(const char* type, std::uint8_t format) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = format;
        message.window = window_;
        message.type = atom(type);
        return message;
    }
    void send(const xcb_client_message_event_t& message, std::uint32_t mask) {
        xcb_send_event(connection_, 0, root_, mask, reinterpret_cast<const char*>(&message));
        xcb_flush(connection_);
    }

    xcb_connection_t* connection_;
    xcb_window_t window_;
    xcb_window_t root_;
};

void bringForwardOnX11(const QWindow& window, const QByteArray& token) {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr || QGuiApplication::platformName() != QLatin1String("xcb")) {
        return;
    }
    RootMessages messages(x11->connection(), static_cast<xcb_window_t>(window.winId()));
    // A token ends with the time of the click that it is about.
    const qsizetype time = token.lastIndexOf("_TIME");
    messages.moveToCurrentDesktop();
    messages.activate(time < 0 ? XCB_CURRENT_TIME : token.mid(time + 5).toUInt());
    if (!token.isEmpty()) {
        messages.endStart(token);
    }
}

#else

void bringForwardOnX11(const QWindow& /*window*/, const QByteArray& /*token*/) {}

#endif

} // namespace

// NOLINTBEGIN(concurrency-mt-unsafe): nobody changes the environment meanwhile
std::string startupToken() {
    for (const char* const name : {waylandVariable, "DESKTOP_STARTUP_ID"}) {
        if (const char* const value = std::getenv(name); value != nullptr && *value != '\0') {
            return value;
        }
    }
    return {};
}
// NOLINTEND(concurrency-mt-unsafe)

void bringForward(QWidget& window, const QByteArray& token) {
    if (!token.isEmpty() && QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        qputenv(waylandVariable, token); // where the toolkit's Wayland part looks for it
    }
    if (window.isMinimized()) {
        window.showNormal();
    }
    window.show();
    window.raise();
    window.activateWindow();
    if (window.windowHandle() != nullptr) {
        bringForwardOnX11(*window.windowHandle(), token);
    }
}

LaterStarts::LaterStarts(SoleStart& start, QWidget& window) : start_(start) {
    if (start.descriptor() >= 0) {
        notifier_ = new QSocketNotifier(start.descriptor(), QSocketNotifier::Read, this);
        connect(notifier_, &QSocketNotifier::activated, this, [this, &window] {
            if (const auto token = start_.answer()) {
                bringForward(window, QByteArray::fromStdString(*token));
            }
        });
    }
}

void LaterStarts::release() {
    delete notifier_;
    notifier_ = nullptr;
    start_.release();
}

} // namespace platform
