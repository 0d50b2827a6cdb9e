#include "updates/session/update_store.hpp"

#include "updates/feed/signed_feed.hpp"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QSaveFile>

#include <algorithm>
#include <utility>

namespace updates {
namespace {

using Time = UpdateMemory::Time;
using namespace std::chrono_literals;

constexpr auto interval = 24h;
constexpr auto firstRetry = 1h;
constexpr qint64 largestFile = 64 << 10;
// For another copy to finish its change: while the user works, and when there is no other time.
constexpr int briefly = 30;   // ms
constexpr int finally = 1000; // ms

constexpr QLatin1String checksByItself("checksByItself");
constexpr QLatin1String starts("starts");
constexpr QLatin1String lastCheck("lastCheck");
constexpr QLatin1String lastTry("lastTry");
constexpr QLatin1String failures("failures");
constexpr QLatin1String skippedVersion("skippedVersion");
constexpr QLatin1String skippedSignature("skippedSignature");
constexpr QLatin1String phaseGroup("phaseGroup");
constexpr QLatin1String feedSerial("feedSerial");

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

QJsonObject read(const QString& path) {
    QFile file(path);
    return !path.isEmpty() && file.open(QIODevice::ReadOnly)
               ? QJsonDocument::fromJson(file.read(largestFile)).object()
               : QJsonObject();
}

UpdateMemory memoryOf(const QJsonObject& object) {
    UpdateMemory memory;
    if (object[checksByItself].isBool()) {
        memory.checksByItself = object[checksByItself].toBool();
    }
    memory.starts = countOf(object[starts]);
    memory.lastCheck = timeOf(object[lastCheck]);
    memory.lastTry = timeOf(object[lastTry]);
    memory.failures = countOf(object[failures]);
    memory.skippedVersion = object[skippedVersion].toString().toStdString();
    memory.skippedSignature = object[skippedSignature].toString().toStdString();
    const int group = object[phaseGroup].toInt(-1);
    if (group >= 0 && group <= 6) {
        memory.phaseGroup = static_cast<unsigned>(group);
    }
    memory.feedSerial = static_cast<std::uint64_t>(
        std::clamp(object[feedSerial].toDouble(0), 0.0, double(largestFeedSerial)));
    return memory;
}

/// Nothing leaves no trace; what is not known here stays.
template<class Value>
void put(QJsonObject& object, QLatin1String key, const std::optional<Value>& value) {
    if (value) {
        object[key] = *value;
    } else {
        object.remove(key);
    }
}

void put(QJsonObject& object, const UpdateMemory& memory) {
    const auto seconds = [](const std::optional<Time>& time) {
        return time ? std::optional(secondsOf(*time)) : std::nullopt;
    };
    put(object, checksByItself, memory.checksByItself);
    object[starts] = memory.starts;
    put(object, lastCheck, seconds(memory.lastCheck));
    put(object, lastTry, seconds(memory.lastTry));
    object[failures] = memory.failures;
    object[skippedVersion] = QString::fromStdString(memory.skippedVersion);
    object[skippedSignature] = QString::fromStdString(memory.skippedSignature);
    put(object, phaseGroup,
        memory.phaseGroup ? std::optional(static_cast<int>(*memory.phaseGroup)) : std::nullopt);
    object[feedSerial] = static_cast<double>(memory.feedSerial);
}

} // namespace

UpdateStore::UpdateStore(QString path) : path_(std::move(path)), memory_(memoryOf(read(path_))) {}

UpdateStore::~UpdateStore() {
    write(finally);
}

const UpdateMemory& UpdateStore::refresh() {
    if (!path_.isEmpty() && unwritten_.empty()) {
        memory_ = memoryOf(read(path_));
    }
    return memory_;
}

void UpdateStore::change(const Change& change) {
    change(memory_);
    if (!path_.isEmpty()) {
        unwritten_.push_back(change);
        write(briefly);
    }
}

/// Puts the changes on top of what the file says by now.
void UpdateStore::write(int patience) {
    if (unwritten_.empty() || !QDir().mkpath(QFileInfo(path_).path())) {
        return;
    }
    QLockFile lock(path_ + QStringLiteral(".lock"));
    if (!lock.tryLock(patience)) {
        return;
    }
    QJsonObject object = read(path_);
    const UpdateMemory before = memoryOf(object);
    UpdateMemory memory = before;
    for (const Change& change : unwritten_) {
        change(memory);
    }
    if (memory != before) {
        put(object, memory);
        QSaveFile file(path_);
        if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(object).toJson()) < 0 ||
            !file.commit()) {
            return; // a failure leaves the file as it was
        }
    }
    memory_ = memory;
    unwritten_.clear();
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

} // namespace updates
