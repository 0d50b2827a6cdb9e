#include "platform/controls/main_thread.hpp"

#include "core/fatal.hpp"

#include <QCoreApplication>
#include <QThread>

#include <string>

namespace platform {

void checkMainThread(const char* operation) {
    const QCoreApplication* const application = QCoreApplication::instance();
    if (application != nullptr && QThread::currentThread() != application->thread()) {
        core::fatal(std::string(operation) + " is for the main thread, and was called on another");
    }
}

} // namespace platform
