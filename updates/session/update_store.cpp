#include "platform/updates/session/update_store.hpp"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <algorithm>
#include <utility>

namespace platform {
namespace {

using Time = UpdateMemory::Time;
using namespace std::chrono_literals;

constexpr auto interval = 24h;
constexpr auto firstRetry = 1h;
constexpr qint64 largestFile = 64 << 10;

constexpr QLatin1String checksByItself("checksByItself");
constexpr QLatin1String starts("starts");
constexpr QLatin1String lastCheck("lastCheck");
constexpr QLatin1String lastTry("lastTry");
constexpr QLatin1String failures("failures");
constexpr QLatin1String skippedVersion("skippedVersion");
constexpr QLatin1String phaseGroup("phaseGroup");

std::optional<Time> timeOf(const QJsonValue& value) {
    // Years 1970 to 9999; anything else was never written.
    const double seconds = value.toDouble(-1);
    return seconds >= 0 && seconds < 253'402'300'800.0
               ? std::optional(
                     Time(std::chrono::seconds(static_cast<std::chrono::seconds::rep>(seconds))))
               : std::nullopt;
}

double secondsOf(Time time) {
    return static_cast<double>(
        std::chrono::duration_cast<std::chrono::seconds>(time.time_since_epoch()).count());
}

int countOf(const QJsonValue& value) {
    return std::clamp(value.toInt(0), 0, 1'000'000);
}

UpdateMemory read(const QString& path) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QJsonObject object = QJsonDocument::fromJson(file.read(largestFile)).object();
    UpdateMemory memory;
    if (object[checksByItself].isBool()) {
        memory.checksByItself = object[checksByItself].toBool();
    }
    memory.starts = countOf(object[starts]);
    memory.lastCheck = timeOf(object[lastCheck]);
    memory.lastTry = timeOf(object[lastTry]);
    memory.failures = countOf(object[failures]);
    memory.skippedVersion = object[skippedVersion].toString().toStdString();
    const int group = object[phaseGroup].toInt(-1);
    if (group >= 0 && group <= 6) {
        memory.phaseGroup = static_cast<unsigned>(group);
    }
    return memory;
}

} // namespace

UpdateStore::UpdateStore(QString path) : path_(std::move(path)), memory_(read(path_)) {}

void UpdateStore::set(const UpdateMemory& memory) {
    if (memory == memory_) {
        return;
    }
    memory_ = memory;
    if (path_.isEmpty()) {
        return;
    }
    QJsonObject object;
    if (memory.checksByItself) {
        object[checksByItself] = *memory.checksByItself;
    }
    object[starts] = memory.starts;
    if (memory.lastCheck) {
        object[lastCheck] = secondsOf(*memory.lastCheck);
    }
    if (memory.lastTry) {
        object[lastTry] = secondsOf(*memory.lastTry);
    }
    object[failures] = memory.failures;
    object[skippedVersion] = QString::fromStdString(memory.skippedVersion);
    if (memory.phaseGroup) {
        object[phaseGroup] = static_cast<int>(*memory.phaseGroup);
    }
    QSaveFile file(path_);
    if (QDir().mkpath(QFileInfo(path_).path()) && file.open(QIODevice::WriteOnly)) {
        file.write(QJsonDocument(object).toJson());
        file.commit(); // a failure leaves the file as it was; the next change tries again
    }
}

std::optional<Time> nextCheck(const UpdateMemory& memory, Time now) {
    if (!memory.checksByItself.value_or(false)) {
        return std::nullopt;
    }
    const auto past = [now](std::optional<Time> time) {
        return time && *time <= now ? time : std::nullopt;
    };
    Time due = past(memory.lastCheck) ? *memory.lastCheck + interval : now;
    if (const auto tried = past(memory.lastTry); tried && memory.failures > 0) {
        const auto wait = std::min<std::chrono::system_clock::duration>(
            firstRetry * (1 << std::min(memory.failures - 1, 5)), interval);
        due = std::max(due, *tried + wait);
    }
    return due;
}

} // namespace platform
