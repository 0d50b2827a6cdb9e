// update_session_figures HELPER: what an update costs the program that is being updated, with the
// real dialogs, a real server over TLS (this program once more, with the argument --serve) and the
// real helper.
//   update_check_rss_mib: resident memory that a check on command adds, up to its answer
//   ui_stall_ms: the longest time that the main thread did not come round while an update of 96 MiB
//   was downloaded, verified and unpacked

#include "bench/figure.hpp"
#include "platform/ui/appearance.hpp"
#include "platform/updates/dialogs/update_windows.hpp"
#include "platform/updates/session/update_session.hpp"
#include "platform/updates/testing/archive_maker.hpp"
#include "platform/updates/testing/https_server.hpp"
#include "platform/updates/testing/test_key.hpp"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSocketNotifier>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <unistd.h>

#include <fstream>
#include <iostream>
#include <random>

namespace {

namespace fs = std::filesystem;
using namespace platform;
namespace kit = platform::testing;

constexpr std::size_t updateSize = 96U << 20U;

double residentMiB() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == "VmRSS:") {
            double kib = 0;
            status >> kib;
            return kib / 1024;
        }
    }
    return 0;
}

std::vector<std::byte> makeUpdate() {
    std::string content(updateSize, '\0');
    std::mt19937_64 random(1);
    for (std::size_t i = 0; i + 8 <= content.size(); i += 8) {
        const std::uint64_t bits = random();
        std::copy_n(reinterpret_cast<const char*>(&bits), 8,
                    content.begin() + static_cast<long>(i));
    }
    return kit::makeArchive(kit::updateWith(
        "1.1.0", {{.name = "Larkvox/versions/1.1.0/share/data", .content = content}}));
}

/// Prints the feed's address and the certificate authority, and serves until its input ends.
int serve(int& argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const kit::CertificateFolder certificates;
    kit::HttpsServer server(certificates.issue(QStringLiteral("server")));
    const std::vector<std::byte> archive = makeUpdate();
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(archive.data()),
                                                     static_cast<qsizetype>(archive.size()));
    server.handle(QStringLiteral("/archive"), kit::servingFile(bytes));
    const QByteArray feed =
        "<rss xmlns:sparkle=\"s\"><channel><item><sparkle:version>1.1.0</sparkle:version>"
        "<enclosure url=\"" +
        server.url(QStringLiteral("/archive")).toEncoded() + "\" length=\"" +
        QByteArray::number(bytes.size()) + "\" sparkle:edSignature=\"" +
        QByteArray::fromStdString(kit::testSignature(archive)) + "\"/></item></channel></rss>";
    server.handle(QStringLiteral("/feed"), kit::answering(feed, "application/rss+xml"));
    std::cout << server.url(QStringLiteral("/feed")).toString().toStdString() << '\n'
              << certificates.authority().toBase64().toStdString() << std::endl;
    const QSocketNotifier end(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&end, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    return QCoreApplication::exec();
}

/// An installation of version 1.0.0.
void installInto(const QString& folder, const char* helper) {
    for (const kit::MadeEntry& entry : kit::goodUpdate("1.0.0", "#!/bin/sh\n")) {
        const fs::path path = fs::path(folder.toStdString()) / entry.name;
        fs::create_directories(path.parent_path());
        if (entry.type == kit::MadeEntry::Type::folder) {
            fs::create_directory(path);
        } else if (entry.type == kit::MadeEntry::Type::symbolicLink) {
            fs::create_symlink(entry.content, path);
        } else {
            std::ofstream(path, std::ios::binary) << entry.content;
            fs::permissions(path, fs::perms(entry.mode));
        }
    }
    const fs::path own = fs::path(folder.toStdString()) / "Larkvox/versions/1.0.0/libexec";
    fs::create_directories(own);
    fs::copy_file(helper, own / "larkvox-install", fs::copy_options::overwrite_existing);
}

void runFor(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

template<class Scene>
bool comes(const UpdateSession& session) {
    QElapsedTimer clock;
    clock.start();
    while (!std::holds_alternative<Scene>(session.scene())) {
        if (clock.elapsed() > 120'000 || std::holds_alternative<scene::Failed>(session.scene())) {
            std::fprintf(stderr, "the update does not get there\n");
            return false;
        }
        runFor(5);
    }
    return true;
}

/// Comes round as often as the main thread lets it, and keeps the longest time between.
class Pulse final : public QObject {
  public:
    Pulse() {
        clock_.start();
        startTimer(1, Qt::PreciseTimer);
    }
    double longest = 0; // ms

  protected:
    void timerEvent(QTimerEvent* /*event*/) override {
        longest = std::max(longest, static_cast<double>(clock_.nsecsElapsed()) / 1e6);
        clock_.restart();
    }

  private:
    QElapsedTimer clock_;
};

int measure(int& argc, char** argv, const char* helper) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    setAppearance(application, Appearance::darkAqua);
    QProcess server;
    server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    server.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--serve")});
    if (!server.waitForReadyRead(60'000)) {
        std::fprintf(stderr, "the server does not start\n");
        return 1;
    }
    const QTemporaryDir folder;
    installInto(folder.path(), helper);
    UpdaterConfiguration configuration;
    configuration.identity.product = QStringLiteral("Larkvox");
    configuration.identity.feed = QUrl(QString::fromUtf8(server.readLine().trimmed()));
    configuration.identity.publicKey = kit::publicTestKey;
    // With as many others as the system trusts, so that they count.
    QFile others(QStringLiteral("/etc/ssl/certs/ca-certificates.crt"));
    if (others.open(QIODevice::ReadOnly)) {
        configuration.identity.trustAnchors = others.readAll();
    }
    configuration.identity.trustAnchors += QByteArray::fromBase64(server.readLine());
    configuration.version = QStringLiteral("1.0.0");
    const fs::path program =
        fs::path(folder.path().toStdString()) / "Larkvox/versions/1.0.0/bin/larkvox";
    configuration.examine = [program] {
        return examineInstallation(program, {"/nowhere", "/nowhere"});
    };
    UpdateSession session(configuration);
    UpdateWindows windows(session, Workspace::shared());
    QWidget window;
    window.show();
    runFor(500);

    const double before = residentMiB();
    session.checkForUpdates();
    bool isThere = comes<scene::Offer>(session);
    bench::figure("update_check_rss_mib", residentMiB() - before, "MiB");

    Pulse pulse;
    session.install();
    isThere = isThere && comes<scene::Ready>(session);
    bench::figure("ui_stall_ms", pulse.longest, "ms");
    server.closeWriteChannel();
    server.waitForFinished();
    return isThere ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleMock(&argc, argv);
    if (argc == 2 && std::string_view(argv[1]) == "--serve") {
        return serve(argc, argv);
    }
    if (argc != 2) {
        std::fprintf(stderr, "usage: update_session_figures HELPER\n");
        return 2;
    }
    return measure(argc, argv, argv[1]);
}
