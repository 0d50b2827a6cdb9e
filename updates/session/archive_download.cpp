#include "platform/updates/session/archive_download.hpp"

#include <algorithm>

namespace platform {
namespace {

constexpr qint64 tellingInterval = 100; // ms
constexpr qint64 speedWindow = 3000;    // ms

/// Whether another try may get further.
bool isPassing(UpdateProblem problem) {
    switch (problem) {
    case UpdateProblem::connectionLost:
    case UpdateProblem::noAnswer:
    case UpdateProblem::offline:
    case UpdateProblem::serverError:
    case UpdateProblem::tooSlow:
        return true;
    default:
        return false;
    }
}

} // namespace

ArchiveDownload::ArchiveDownload(const HttpsClient& client, const UpdateLimits& limits,
                                 QObject* parent)
    : QObject(parent), client_(client), limits_(limits) {
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, &ArchiveDownload::attempt);
}

void ArchiveDownload::start(const QUrl& url, std::uint64_t length) {
    url_ = url;
    length_ = length;
    const std::uint64_t seconds = length / std::max<std::uint64_t>(1, limits_.leastBytesPerSecond);
    wholeTime_ = limits_.downloadTime + std::chrono::seconds(seconds);
    clock_.start();
    if (length > limits_.archiveBytes) {
        finish(UpdateFailure{UpdateProblem::archiveTooLarge, {}});
    } else if (length == 0) {
        finish(UpdateFailure{UpdateProblem::wrongLength, {}});
    } else if (!beginAnew()) {
        finish(UpdateFailure{UpdateProblem::noMemory, {}});
    } else {
        attempt();
    }
}

bool ArchiveDownload::beginAnew() {
    received_ = 0;
    samples_.clear();
    validator_.clear();
    if (archive_.isOpen()) {
        return !archive_.clear();
    }
    std::error_code error;
    archive_ = SealedFile::create("update", error);
    return !error;
}

void ArchiveDownload::attempt() {
    const std::chrono::milliseconds left = wholeTime_ - std::chrono::milliseconds(clock_.elapsed());
    if (left.count() <= 0) {
        finish(UpdateFailure{UpdateProblem::tooSlow, {}});
        return;
    }
    if (validator_.isEmpty() && received_ > 0 && !beginAnew()) {
        finish(UpdateFailure{UpdateProblem::noMemory, {}});
        return;
    }
    ++attempts_;
    isLengthTold_ = false;
    fetch_ = std::make_unique<HttpsFetch>(client_, limits_);
    fetch_->onAnswer = [this](const HttpsAnswer& answer) { return take(answer); };
    fetch_->onBytes = [this](std::span<const std::byte> bytes) { return take(bytes); };
    connect(fetch_.get(), &HttpsFetch::finished, this, &ArchiveDownload::endAttempt);
    fetch_->start({.url = url_,
                   .accept = "*/*",
                   .largest = length_,
                   .wholeTime = left,
                   .offset = received_,
                   .validator = validator_});
}

std::optional<UpdateFailure> ArchiveDownload::take(const HttpsAnswer& answer) {
    if (answer.contentType == "text/html") {
        return UpdateFailure{UpdateProblem::signInFirst, {}};
    }
    if (answer.wholeLength && *answer.wholeLength != length_) {
        return UpdateFailure{UpdateProblem::wrongLength, {}};
    }
    if (answer.isPartial && answer.firstByte != received_) {
        return UpdateFailure{UpdateProblem::serverError, QStringLiteral("206")};
    }
    // Not from where we were: it is another archive by now, or the server cannot go on.
    if (!answer.isPartial && received_ > 0 && !beginAnew()) {
        return UpdateFailure{UpdateProblem::noMemory, {}};
    }
    isLengthTold_ = answer.length.has_value();
    if (!answer.isPartial) {
        validator_ = answer.validator;
    }
    samples_.clear();
    return std::nullopt;
}

std::optional<UpdateFailure> ArchiveDownload::take(std::span<const std::byte> bytes) {
    if (bytes.size() > length_ - received_) {
        return UpdateFailure{UpdateProblem::wrongLength, {}};
    }
    if (archive_.append(bytes)) {
        return UpdateFailure{UpdateProblem::noMemory, {}};
    }
    received_ += bytes.size();
    tell();
    return std::nullopt;
}

void ArchiveDownload::tell() {
    const qint64 now = clock_.elapsed();
    if (!samples_.empty() && received_ < length_ && now - toldAt_ < tellingInterval) {
        return;
    }
    toldAt_ = now;
    samples_.emplace_back(now, received_);
    while (samples_.size() > 2 && now - samples_.front().first > speedWindow) {
        samples_.pop_front();
    }
    const auto& [since, receivedThen] = samples_.front();
    const double seconds = static_cast<double>(now - since) / 1000;
    const double speed = seconds > 0 ? static_cast<double>(received_ - receivedThen) / seconds : 0;
    emit progressed({received_, length_, speed});
}

void ArchiveDownload::endAttempt(const std::optional<UpdateFailure>& failure) {
    fetch_.release()->deleteLater(); // it is still telling
    std::optional<UpdateFailure> end = failure;
    if (!failure && received_ < length_) {
        // An end before the end: the whole of a shorter archive, or a cut that nobody could see.
        end = UpdateFailure{
            isLengthTold_ ? UpdateProblem::wrongLength : UpdateProblem::connectionLost, {}};
    }
    if (!end) {
        if (archive_.seal()) {
            end = UpdateFailure{UpdateProblem::noMemory, {}};
        }
        finish(end);
        return;
    }
    fruitlessAttempts_ = received_ > furthest_ ? 0 : fruitlessAttempts_ + 1;
    furthest_ = std::max(furthest_, received_);
    if (!isPassing(end->problem) || attempts_ > limits_.resumptions ||
        fruitlessAttempts_ > limits_.fruitlessResumptions) {
        finish(end);
        return;
    }
    pause_.start(limits_.resumptionPause * (1 << std::min(fruitlessAttempts_, 6)));
}

void ArchiveDownload::finish(const std::optional<UpdateFailure>& failure) {
    if (failure) {
        archive_ = SealedFile();
    }
    emit finished(failure);
}

} // namespace platform
