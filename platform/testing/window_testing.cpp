#include "platform/testing/window_testing.hpp"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
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

int largestDifference(QRgb one, QRgb other) {
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

int largestDifference(const QImage& one, const QImage& other) {
    int largest = one.size() == other.size() ? 0 : 255;
    for (int y = 0; largest < 255 && y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            largest = std::max(largest, largestDifference(one.pixel(x, y), other.pixel(x, y)));
        }
    }
    return largest;
}

namespace {

bool send(QWidget& widget, QEvent& event) {
    QCoreApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

} // namespace

bool sendMouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton button,
               Qt::MouseButtons held, Qt::KeyboardModifiers modifiers) {
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, held, modifiers);
    return send(widget, event);
}

bool sendMove(QWidget& widget, QPointF to, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers) {
    return sendMouse(widget, QEvent::MouseMove, to, Qt::NoButton, held, modifiers);
}

bool sendKey(QWidget& widget, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
             bool isRepeat) {
    QKeyEvent event(type, key, modifiers, {}, isRepeat);
    return send(widget, event);
}

bool sendWheel(QWidget& widget, int angle, Qt::ScrollPhase phase, bool isInverted) {
    const QPoint at = widget.rect().center();
    QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      phase, isInverted);
    event.ignore();
    return send(widget, event);
}

bool sendEvent(QWidget& widget, QEvent::Type type) {
    QEvent event(type);
    return send(widget, event);
}

} // namespace platform::testing

void PrintTo(const QColor& color, std::ostream* stream) {
    *stream << (color.isValid() ? color.name(QColor::HexArgb).toStdString() : "no colour");
}
