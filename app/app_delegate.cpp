#include "app/app_delegate.hpp"

#include "platform/ui/appearance.hpp"

#include <QApplication>

namespace larkvox {

void AppDelegate::applicationDidFinishLaunching(QObject* object) {
    if (auto* const application = qobject_cast<QApplication*>(object)) {
        platform::setAppearance(*application, platform::Appearance::darkAqua);
    }
}

} // namespace larkvox
