#pragma once

#include <QAccessible>

namespace platform {

/// Makes the interface of an object that is a `Class`, or null.
using AccessibleMaker = QAccessibleInterface* (*)(QObject& object);

/// From now on objects of a class, and of those derived from it, are known to assistive technology
/// by what `maker` makes for them; of two classes that an object is of, the more special one
/// counts. The library has one factory for all its classes, and takes it back when it is unloaded.
/// Asking again is nothing new. Main thread.
void addAccessibleMaker(const QMetaObject& metaObject, AccessibleMaker maker);

/// The same for a class with an operation `QAccessibleInterface* makeAccessible()`, as a statement
/// at the start of its constructor.
template<class Class>
void installAccessible() {
    [[maybe_unused]] static const bool isInstalled =
        (addAccessibleMaker(
             Class::staticMetaObject,
             [](QObject& object) { return static_cast<Class&>(object).makeAccessible(); }),
         true);
}

} // namespace platform
