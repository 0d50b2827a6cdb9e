#include "updates/session/install_client.hpp"

#include "platform/system/sealed_file.hpp"

#include <fcntl.h>

#include <chrono>

namespace updates {
namespace {

using namespace std::chrono_literals;

constexpr auto longestQuiet = 120s; // a disk may take its time over a large archive
constexpr int farewell = 10'000;    // ms, for removing what was unpacked
constexpr qint64 longestLine = 4096;

} // namespace

InstallClient::InstallClient(QObject* parent) : QObject(parent) {
    quiet_.setSingleShot(true);
    quiet_.setInterval(longestQuiet);
    connect(&quiet_, &QTimer::timeout, this, [this] {
        helper_.kill(); // what it leaves behind goes with the next start
        fail({UpdateProblem::installerStopped, {}});
    });
    helper_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    connect(&helper_, &QProcess::readyReadStandardOutput, this, [this] { hear(); });
    connect(&helper_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        fail({error == QProcess::FailedToStart ? UpdateProblem::installerMissing
                                               : UpdateProblem::installerStopped,
              {}});
    });
    connect(&helper_, &QProcess::finished, this, [this] {
        hear();
        fail({UpdateProblem::installerStopped, {}});
    });
}

InstallClient::~InstallClient() {
    isOver_ = true;
    helper_.disconnect(this);
    if (helper_.state() != QProcess::NotRunning) {
        helper_.closeWriteChannel(); // cancels
        helper_.waitForFinished(farewell);
    }
}

void InstallClient::start(const InstallOrder& order, const platform::SealedFile& archive) {
    if (order.helper.empty()) {
        fail({UpdateProblem::installerMissing, {}});
        return;
    }
    QStringList arguments;
    for (const std::string& argument : installArguments({.root = order.root,
                                       .archive = archive.fd(),
                                       .length = archive.size(),
                                       .signature = order.signature,
                                       .version = order.version,
                                       .installed = order.installedVersion})) {
        arguments.append(QString::fromStdString(argument));
    }
    // The helper, and no other program, inherits the descriptor.
    helper_.setChildProcessModifier([descriptor = archive.fd()] { fcntl(descriptor, F_SETFD, 0); });
    quiet_.start();
    helper_.start(QString::fromStdString(order.helper.string()), arguments);
}

void InstallClient::install() {
    helper_.write(QByteArray(installCommand.data(), installCommand.size()) + '\n');
    quiet_.start();
}

void InstallClient::hear() {
    while (!isOver_ && helper_.canReadLine()) {
        const QByteArray line = helper_.readLine(longestLine).trimmed();
        if (const auto message = readInstallLine(
                std::string_view(line.constData(), static_cast<std::size_t>(line.size())))) {
            quiet_.start();
            hear(*message);
        }
    }
}

void InstallClient::hear(const InstallMessage& message) {
    if (std::holds_alternative<InstallVerifying>(message)) {
        emit unpacking(0, 1);
    } else if (const auto* const progress = std::get_if<InstallProgress>(&message)) {
        emit unpacking(progress->done, progress->total);
    } else if (std::holds_alternative<InstallReady>(message)) {
        quiet_.stop(); // it waits for the user
        emit ready();
    } else if (std::holds_alternative<InstallDone>(message)) {
        isOver_ = true;
        quiet_.stop();
        emit installed();
    } else if (const auto* const refused = std::get_if<Refusal>(&message)) {
        fail({refused->problem, {}});
    }
}

void InstallClient::fail(const UpdateFailure& failure) {
    if (!isOver_) {
        isOver_ = true;
        quiet_.stop();
        emit failed(failure);
    }
}

} // namespace updates
