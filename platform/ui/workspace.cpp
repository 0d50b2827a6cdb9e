#include "platform/ui/workspace.hpp"

#include <QDesktopServices>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <utility>

namespace platform {
namespace {

class DesktopWorkspace final : public Workspace {
  public:
    bool open(const QUrl& url) override {
        const QString opener = opensByProgram() ? findOpener() : QString();
        if (!opener.isEmpty()) {
            start(opener, url);
            return true;
        }
        const bool isOpened = QDesktopServices::openUrl(url);
        if (!isOpened) {
            tell(url);
        }
        return isOpened;
    }

    std::function<void(const QUrl&)> unopened;

  private:
    /// The toolkit starts the same program and does not wait for what it says. In a sandbox it asks
    /// the desktop instead.
    static bool opensByProgram() {
        return !qEnvironmentVariableIsSet("SNAP") &&
               !QFile::exists(QStringLiteral("/.flatpak-info"));
    }
    static QString findOpener() {
        return QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    }

    void tell(const QUrl& url) const {
        if (unopened) {
            unopened(url);
        }
    }

    void start(const QString& opener, const QUrl& url) {
        // Owned by nobody, deletes itself: what it has opened outlives this program.
        auto* const process = new QProcess;
        process->setStandardInputFile(QProcess::nullDevice());
        process->setProcessChannelMode(QProcess::ForwardedChannels);
        QObject::connect(process, &QProcess::finished, process, [this, process, url](int result) {
            process->deleteLater();
            if (result != 0) {
                tell(url);
            }
        });
        QObject::connect(process, &QProcess::errorOccurred, process,
                         [this, process, url](QProcess::ProcessError error) {
                             if (error == QProcess::FailedToStart) {
                                 process->deleteLater();
                                 tell(url);
                             }
                         });
        process->start(opener, {url.toString(QUrl::FullyEncoded)});
    }
};

DesktopWorkspace& desktop() {
    static DesktopWorkspace workspace;
    return workspace;
}

} // namespace

Workspace& Workspace::shared() {
    return desktop();
}

void Workspace::setUnopened(std::function<void(const QUrl&)> tell) {
    desktop().unopened = std::move(tell);
}

} // namespace platform
