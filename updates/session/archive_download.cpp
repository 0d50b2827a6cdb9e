#include "updates/session/archive_download.hpp"

#include <algorithm>

namespace updates {
namespace {

using namespace std::chrono_literals;

constexpr auto tellingInterval = 100ms;
constexpr auto speedWindow = 3s;

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
                                 std::function<void(const DownloadProgress&)> progress)
    : client_(client), limits_(limits), progress_(std::move(progress)) {}

std::variant<platform::SealedFile, UpdateFailure>
ArchiveDownload::get(const QUrl& url, std::uint64_t length, HttpsClient::Time now) {
    if (length == 0 || length > limits_.archiveBytes) {
        return UpdateFailure{
            length == 0 ? UpdateProblem::wrongLength : UpdateProblem::archiveTooLarge, {}};
    }
    length_ = length;
    end_ = Clock::now() + limits_.downloadTime +
           std::chrono::seconds(length / std::max<std::uint64_t>(1, limits_.leastBytesPerSecond));
    std::uint64_t furthest = 0; // ever received before an attempt
    int fruitless = 0;
    for (int attempts = 1;; ++attempts) {
        MaybeFailure failure = attempt(url, now);
        if (!failure && archive_.seal()) {
            failure = {UpdateProblem::noMemory, {}};
        }
        if (!failure) {
            return std::move(archive_);
        }
        fruitless = received_ > furthest ? 0 : fruitless + 1;
        furthest = std::max(furthest, received_);
        if (!isPassing(failure->problem) || attempts > limits_.resumptions ||
            fruitless > limits_.fruitlessResumptions || !client_.isWanted()) {
            return *std::move(failure);
        }
        client_.pause(limits_.resumptionPause * (1 << std::min(fruitless, 6)));
    }
}

ArchiveDownload::MaybeFailure ArchiveDownload::beginAnew() {
    received_ = 0;
    samples_.clear();
    validator_.clear();
    std::error_code error;
    if (archive_.isOpen()) {
        error = archive_.clear();
    } else {
        archive_ = platform::SealedFile::create("update", error);
    }
    return error ? MaybeFailure({UpdateProblem::noMemory, {}}) : std::nullopt;
}

ArchiveDownload::MaybeFailure ArchiveDownload::attempt(const QUrl& url, HttpsClient::Time now) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end_ - Clock::now());
    if (left <= 0ms) {
        return UpdateFailure{UpdateProblem::tooSlow, {}};
    }
    if (!archive_.isOpen() || (validator_.isEmpty() && received_ > 0)) {
        if (const auto failure = beginAnew()) {
            return failure;
        }
    }
    isLengthTold_ = false;
    const auto failure =
        client_.get({.url = url,
                     .largest = length_,
                     .wholeTime = left,
                     .offset = received_,
                     .validator = validator_,
                     .onAnswer = [this](const HttpsAnswer& answer) { return take(answer); },
                     .onBytes = [this](std::span<const std::byte> bytes) { return take(bytes); }},
                    now);
    if (!failure && received_ < length_) {
        // An end before the end: the whole of a shorter archive, or a cut that nobody could see.
        return UpdateFailure{
            isLengthTold_ ? UpdateProblem::wrongLength : UpdateProblem::connectionLost, {}};
    }
    return failure;
}

ArchiveDownload::MaybeFailure ArchiveDownload::take(const HttpsAnswer& answer) {
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
    if (!answer.isPartial && received_ > 0) {
        if (const auto failure = beginAnew()) {
            return failure;
        }
    }
    isLengthTold_ = answer.length.has_value();
    if (!answer.isPartial) {
        validator_ = answer.validator;
    }
    samples_.clear();
    return std::nullopt;
}

ArchiveDownload::MaybeFailure ArchiveDownload::take(std::span<const std::byte> bytes) {
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
    const auto now = Clock::now();
    if (!samples_.empty() && received_ < length_ && now - toldAt_ < tellingInterval) {
        return;
    }
    toldAt_ = now;
    samples_.emplace_back(now, received_);
    while (samples_.size() > 2 && now - samples_.front().first > speedWindow) {
        samples_.pop_front();
    }
    const auto& [since, receivedThen] = samples_.front();
    const double seconds = std::chrono::duration<double>(now - since).count();
    const double speed = seconds > 0 ? static_cast<double>(received_ - receivedThen) / seconds : 0;
    progress_({received_, length_, speed});
}

} // namespace updates
