#include "platform/controls/desktop_composition.hpp"

#include <QGuiApplication>

#ifdef LARKVOX_HAS_XCB
#include <cstdlib>
#include <memory>
#include <string>
#include <xcb/xcb.h>
#endif

namespace platform {
#ifdef LARKVOX_HAS_XCB
namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template<class Reply>
using Answer = std::unique_ptr<Reply, Free>;

/// On X11 a program that composes owns a selection of the screen.
bool hasCompositionManager(xcb_connection_t* connection) {
    const std::string name = "_NET_WM_CM_S0";
    const auto asked =
        xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.c_str());
    const Answer<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(connection, asked, nullptr));
    if (atom == nullptr || atom->atom == XCB_ATOM_NONE) {
        return false;
    }
    const Answer<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return owner != nullptr && owner->owner != XCB_WINDOW_NONE;
}

} // namespace
#endif

bool desktopComposites() {
#ifdef LARKVOX_HAS_XCB
    // Without a screen the toolkit has the interface, too, but nothing behind it.
    auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 != nullptr && QGuiApplication::platformName() == QLatin1String("xcb")) {
        return hasCompositionManager(x11->connection());
    }
#endif
    return true;
}

} // namespace platform
