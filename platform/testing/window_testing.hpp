#pragma once

#include <QColor>
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

} // namespace platform::testing

/// Colours in the messages of failed tests.
void PrintTo(const QColor& color, std::ostream* stream);
