#include "platform/testing/window_testing.hpp"

#include <QApplication>
#include <QScreen>
#include <QTest>

#include <cstdlib>
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

int pixelsOf(const QImage& picture, const QColor& color) {
    constexpr int tolerance = 12; // of all channels together
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor c = picture.pixelColor(x, y);
            count += std::abs(c.red() - color.red()) + std::abs(c.green() - color.green()) +
                         std::abs(c.blue() - color.blue()) <
                     tolerance;
        }
    }
    return count;
}

} // namespace platform::testing

void PrintTo(const QColor& color, std::ostream* stream) {
    *stream << (color.isValid() ? color.name(QColor::HexArgb).toStdString() : "no colour");
}
