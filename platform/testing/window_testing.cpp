#include "platform/testing/window_testing.hpp"

#include <QApplication>
#include <QScreen>
#include <QTest>

#include <ostream>

namespace platform::testing {

bool runUntil(const std::function<bool()>& condition, int milliseconds) {
    return QTest::qWaitFor(condition, milliseconds);
}

void runFor(int milliseconds) {
    QTest::qWait(milliseconds);
}

void showActive(QWidget& window) {
    window.show();
    runUntil([&] { return window.windowHandle()->isExposed(); });
    QApplication::setActiveWindow(&window);
    QCoreApplication::processEvents();
}

QImage screenshot(const QWidget& widget) {
    const QRect place(widget.mapToGlobal(QPoint()), widget.size());
    return widget.screen()
        ->grabWindow(0, place.x(), place.y(), place.width(), place.height())
        .toImage();
}

QColor screenColor(const QWidget& widget, QPointF point) {
    const QImage image = screenshot(widget);
    const QPoint pixel = (point * image.devicePixelRatio()).toPoint();
    return image.valid(pixel) ? image.pixelColor(pixel) : QColor();
}

} // namespace platform::testing

void PrintTo(const QColor& color, std::ostream* stream) {
    *stream << (color.isValid() ? color.name(QColor::HexArgb).toStdString() : "no colour");
}
