#pragma once

#include <QColor>
#include <QEvent>
#include <QImage>
#include <QWidget>

#include <functional>
#include <iosfwd>

namespace platform::testing {

/// Runs the event loop until the condition holds; false when it still does not after the time.
bool runUntil(const std::function<bool()>& condition, int milliseconds = 4000);
/// Runs the event loop for a time.
void runFor(int milliseconds);

/// Shows a window and gives it the keyboard, with or without a window manager.
void showActive(QWidget& window);

/// What the user sees in the widget's place: a picture of the screen, in the screen's pixels.
QImage screenshot(const QWidget& widget);
/// The screen's colour at a point of the widget.
QColor screenColor(const QWidget& widget, QPointF point);
/// How many pixels have the colour, but for what rounding explains.
int pixelsOf(const QImage& picture, const QColor& color);
/// By how much the components of two pixels, or of two pictures of one size, differ at most.
int largestDifference(QRgb one, QRgb other);
int largestDifference(const QImage& one, const QImage& other);

/// Delivers an event of the mouse at once; `at` is in the widget, `held` are the buttons after it.
/// True when it was taken.
bool sendMouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton button,
               Qt::MouseButtons held, Qt::KeyboardModifiers modifiers = {});
/// A move, with the left button held unless said otherwise.
bool sendMove(QWidget& widget, QPointF to, Qt::MouseButtons held = Qt::LeftButton,
              Qt::KeyboardModifiers modifiers = {});
/// The same for a key.
bool sendKey(QWidget& widget, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = {},
             bool isRepeat = false);
/// The same for a turn of the wheel over the widget's middle.
bool sendWheel(QWidget& widget, int angle, Qt::ScrollPhase phase = Qt::NoScrollPhase,
               bool isInverted = false);
/// The same for one that says nothing but its type.
bool sendEvent(QWidget& widget, QEvent::Type type);

} // namespace platform::testing

/// Colours in the messages of failed tests.
void PrintTo(const QColor& color, std::ostream* stream);
