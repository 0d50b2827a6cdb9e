#pragma once

#include <QAccessible>

class QWidget;

namespace platform {

/// Tells assistive technology what a widget is: one without a value or actions of its own, whose
/// class says too little, such as a window or a picture. Its name is `accessibleName` or the window
/// title. The first thing in the widget's constructor: names are told at once. Main thread.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

} // namespace platform
