#include "platform/updates/system_surroundings.hpp"

#include <QCoreApplication>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QSysInfo>

namespace platform {

UpdaterConfiguration systemSurroundings(const QString& name) {
    UpdaterConfiguration configuration;
    const std::filesystem::path program = QCoreApplication::applicationFilePath().toStdString();
    configuration.examine = [program] { return examineInstallation(program); };
    configuration.arguments = QCoreApplication::arguments().mid(1);
    configuration.systemVersion = QSysInfo::kernelVersion().toStdString();
    configuration.storePath =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' + name +
        QStringLiteral("/updates.json");
    configuration.random = [] { return QRandomGenerator::global()->generate(); };
    configuration.startProgram = [](const QString& file, const QStringList& arguments) {
        return QProcess::startDetached(file, arguments);
    };
    configuration.quit = [] { QCoreApplication::quit(); };
    return configuration;
}

} // namespace platform
