#include "updates/system_surroundings.hpp"

#include "platform/system/process.hpp"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QSysInfo>

namespace updates {

UpdaterConfiguration systemSurroundings(const QString& name) {
    UpdaterConfiguration configuration;
    // Not by the name it was started by: its folder may be moved while it runs.
    configuration.examine = [] { return examineInstallation(platform::programFile()); };
    configuration.arguments = platform::programArguments();
    configuration.systemVersion = QSysInfo::kernelVersion().toStdString();
    configuration.storePath =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' + name +
        QStringLiteral("/updates.json");
    configuration.random = [] { return QRandomGenerator::global()->generate(); };
    configuration.startProgram = platform::startProgram;
    configuration.quit = [] { QCoreApplication::quit(); };
    return configuration;
}

} // namespace updates
