// update_session_figures HELPER: what an update costs the program that is being updated, with the
// real dialogs, a real server over TLS (this program once more, with the argument --serve) and the
// real helper.
//   update_check_rss_mib: resident memory that a check on command adds at its peak, with the
//   largest feed, or with an answer whose head has no end ui_stall_ms: the longest time that the
//   main thread did not come round from the start of a check to the end of an update of 96 MiB,
//   with the worst notes that are shown; on the screen it is run on

#include "app/dialog_style.hpp"
#include "bench/figure.hpp"
#include "platform/ui/appearance.hpp"
#include "updates/dialogs/update_windows.hpp"
#include "updates/session/update_session.hpp"
#include "updates/testing/archive_maker.hpp"
#include "updates/testing/https_server.hpp"
#include "updates/testing/test_key.hpp"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSocketNotifier>
#include <QSslSocket>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <unistd.h>

#include <fstream>
#include <iostream>
#include <random>

namespace {

namespace fs = std::filesystem;
using namespace updates;
namespace kit = updates::testing;

constexpr std::size_t updateSize = 96U << 20U;

/// "VmRSS:" is what is resident, "VmHWM:" its peak since it was forgotten.
double residentMiB(std::string_view what) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == what) {
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

void forgetPeak() {
    std::ofstream("/proc/self/clear_refs") << 5;
}

/// What takes longest to lay out, and is not refused.
std::vector<QByteArray> worstNotes() {
    const QByteArray letters = "ä漢ひ한अกעش🎵";
    return {QByteArray("<ul><li>").repeated(30'000),
            QByteArray("<ul><li>x</ul>").repeated(18'000),
            QByteArray("<ul><li><ol><li><ul><li><blockquote>x</ul></ol></ul>").repeated(5'000),
            QByteArray("<p>x").repeated(60'000),
            QByteArray("<h1>x</h1>").repeated(25'000),
            QByteArray("<b><i><code>x</code></i></b>").repeated(9'000),
            QByteArray(256 << 10, 'x'),
            QByteArray(256 << 10, '\xff'),
            QByteArray("x&shy;").repeated(40'000),
            QByteArray("\xcc\x81").repeated(100'000),
            letters.repeated(8'000)};
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
    const QByteArray enclosure =
        "<enclosure url=\"" + server.url(QStringLiteral("/archive")).toEncoded() + "\" length=\"" +
        QByteArray::number(bytes.size()) + "\" sparkle:edSignature=\"" +
        QByteArray::fromStdString(kit::testSignature(archive)) + "\"/>";
    // The largest that is read: what an item says is kept for each of its enclosures.
    const QByteArray feed =
        "<rss xmlns:sparkle=\"s\"><channel><item><sparkle:version>1.1.0</sparkle:version>"
        "<sparkle:releaseNotesLink>" +
        server.url(QStringLiteral("/notes")).toEncoded() +
        "</sparkle:releaseNotesLink><description>" + QByteArray((1 << 20) - 4096, 'x') +
        "</description>" + enclosure.repeated(8) + "</item></channel></rss>";
    server.handle(QStringLiteral("/notes"), [next = std::size_t{0}](auto& connection,
                                                                    const auto& request) mutable {
        const auto notes = worstNotes();
        kit::answering(notes[next++ % notes.size()], "text/html")(connection, request);
    });
    server.handle(QStringLiteral("/endless"), [](QSslSocket& connection, const auto&) {
        connection.write("HTTP/1.1 200 OK\r\n");
        auto* const timer = new QTimer(&connection);
        QObject::connect(timer, &QTimer::timeout, &connection, [&connection] {
            if (connection.bytesToWrite() < 1 << 20) {
                connection.write(QByteArray("X: 1234567890\r\n").repeated(1000));
            }
        });
        timer->start(0);
    });
    server.handle(QStringLiteral("/feed"), kit::answering(feed, "application/rss+xml"));
    server.handle(QStringLiteral("/feed.sig"), kit::answering(QByteArray::fromStdString(
                                                   kit::testStatement(feed.toStdString()))));
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
    platform::setAppearance(application, platform::Appearance::darkAqua);
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
    bool isThere = true;
    double memory = 0;
    QWidget window;
    window.show();
    runFor(500);
    {
        UpdaterConfiguration endless = configuration;
        endless.identity.feed.setPath(QStringLiteral("/endless"));
        UpdateSession session(endless);
        forgetPeak();
        const double before = residentMiB("VmRSS:");
        session.checkForUpdates();
        static_cast<void>(comes<scene::Failed>(session));
        memory = residentMiB("VmHWM:") - before;
    }
    UpdateSession session(configuration);
    UpdateWindows windows(session, larkvox::dialogStyle(), platform::Workspace::shared());
    Pulse pulse;
    for (std::size_t i = 0; i < worstNotes().size() && isThere; ++i) {
        session.dismiss();
        forgetPeak();
        const double before = residentMiB("VmRSS:");
        session.checkForUpdates();
        isThere = comes<scene::Offer>(session);
        memory = std::max(memory, residentMiB("VmHWM:") - before);
        const double stall = pulse.longest; // of all before
        pulse.longest = 0;
        while (isThere && std::get<scene::Offer>(session.scene()).isLoadingNotes) {
            runFor(5);
        }
        runFor(300); // until they are painted
        std::fprintf(stderr, "notes %zu: %.1f ms\n", i, pulse.longest);
        pulse.longest = std::max(stall, pulse.longest);
    }
    bench::figure("update_check_rss_mib", memory, "MiB");
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
