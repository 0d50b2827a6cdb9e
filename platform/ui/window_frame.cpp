#include "platform/ui/window_frame.hpp"

#include "platform/controls/desktop_composition.hpp"
#include "platform/controls/soft_shadow.hpp"

#include <QEvent>
#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRegion>
#include <QWidget>
#include <QWindow>

#if QT_CONFIG(xcb)
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>
#endif

#include <cmath>

namespace platform {
namespace {

constexpr int radius = 10;
constexpr QMargins shadowMargins{24, 18, 24, 32};
constexpr double shadowStrength = 0.5;

/// Which pixels are inside of the corners, where they cannot be half there.
QRegion roundedRegion(QSize size) {
    QRegion region;
    for (int y = 0; y < radius; ++y) {
        const double height = radius - y - 0.5;
        const int cut = qRound(radius - std::sqrt(radius * radius - height * height));
        region += QRect(cut, y, size.width() - 2 * cut, 1);
        region += QRect(cut, size.height() - 1 - y, size.width() - 2 * cut, 1);
    }
    return region + QRect(0, radius, size.width(), size.height() - 2 * radius);
}

} // namespace

WindowFrame::WindowFrame(QWidget& window)
    : QObject(&window), window_(window), isComposited_(desktopComposites()) {
    const QString name = QGuiApplication::platformName();
    if (isComposited_) {
        window.setAttribute(Qt::WA_TranslucentBackground);
        // Elsewhere the desktop cannot be told that the shadow is not the window.
        if (name == QLatin1String("xcb")) {
            margins_ = shadowMargins;
        }
    }
    window.installEventFilter(this);
}

QRect WindowFrame::panel() const {
    return window_.rect().marginsRemoved(margins_);
}

bool WindowFrame::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Resize && !isComposited_) {
        window_.setMask(roundedRegion(window_.size()));
    } else if (event->type() == QEvent::WinIdChange || event->type() == QEvent::Show) {
        tellDesktop();
    }
    return QObject::eventFilter(object, event);
}

/// The desktop lays the panel out, not the shadow.
void WindowFrame::tellDesktop() const {
#if QT_CONFIG(xcb)
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (margins_.isNull() || x11 == nullptr || window_.windowHandle() == nullptr) {
        return;
    }
    constexpr std::string_view name = "_GTK_FRAME_EXTENTS";
    const std::unique_ptr<xcb_intern_atom_reply_t, void (*)(void*)> atom(
        xcb_intern_atom_reply(x11->connection(),
                              xcb_intern_atom(x11->connection(), 0, name.size(), name.data()),
                              nullptr),
        &std::free);
    if (atom == nullptr) {
        return;
    }
    const auto pixels = [&](int points) {
        return static_cast<std::uint32_t>(qRound(points * window_.devicePixelRatioF()));
    };
    const std::array<std::uint32_t, 4> extents{pixels(margins_.left()), pixels(margins_.right()),
                                               pixels(margins_.top()), pixels(margins_.bottom())};
    xcb_change_property(x11->connection(), XCB_PROP_MODE_REPLACE,
                        static_cast<xcb_window_t>(window_.windowHandle()->winId()), atom->atom,
                        XCB_ATOM_CARDINAL, 32, extents.size(), extents.data());
#endif
}

void WindowFrame::paint(QPainter& painter, const QRect& area) const {
    const QColor ground = window_.palette().color(QPalette::Window);
    if (inside().contains(area)) {
        painter.fillRect(area, ground);
        return;
    }
    const QRectF shown(panel());
    if (!margins_.isNull()) {
        painter.drawImage(QPointF(), softShadow(panel().size(), margins_,
                                                window_.devicePixelRatioF(), shadowStrength));
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(shown, radius, radius);
    // Light from above, in the pixel at the edge.
    const double pixel = 1 / window_.devicePixelRatioF();
    QPainterPath rim;
    rim.addRoundedRect(shown, radius, radius);
    rim.addRoundedRect(shown.adjusted(pixel, pixel, -pixel, -pixel), radius - pixel,
                       radius - pixel);
    QLinearGradient light(shown.topLeft(), shown.bottomLeft());
    light.setColorAt(0, QColor(255, 255, 255, 62));
    light.setColorAt(1, QColor(255, 255, 255, 34));
    painter.fillPath(rim, light);
}

} // namespace platform
