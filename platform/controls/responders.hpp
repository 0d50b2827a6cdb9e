#pragma once

#include <QObject>

#include <vector>

class QWidget;

namespace platform {

/// Whom an action without a target is offered to, in this order: the widget of the sender's window
/// that has the keyboard and those that it lies in, the sender and those that it lies in, and the
/// application. Main thread.
[[nodiscard]] std::vector<QObject*> responders(QWidget& sender);

/// The first of them that is a `Target`; null when none is.
template<class Target>
[[nodiscard]] Target* firstResponder(QWidget& sender) {
    for (QObject* const object : responders(sender)) {
        if (auto* const target = dynamic_cast<Target*>(object)) {
            return target;
        }
    }
    return nullptr;
}

} // namespace platform
