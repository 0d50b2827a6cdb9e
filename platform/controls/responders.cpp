#include "platform/controls/responders.hpp"

#include <QCoreApplication>
#include <QWidget>

namespace platform {

std::vector<QObject*> responders(QWidget& sender) {
    std::vector<QObject*> all;
    const auto addWithParents = [&](QWidget* widget) {
        for (; widget != nullptr; widget = widget->parentWidget()) {
            all.push_back(widget);
        }
    };
    addWithParents(sender.window()->focusWidget());
    addWithParents(&sender);
    if (QCoreApplication* const application = QCoreApplication::instance()) {
        all.push_back(application);
    }
    return all;
}

} // namespace platform
