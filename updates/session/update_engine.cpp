#include "updates/session/update_engine.hpp"

#include <algorithm>
#include <utility>

namespace updates {
namespace {

/// Whether a document is a web page, whatever it was called.
bool looksLikeWebPage(const QByteArray& document, const QByteArray& type) {
    const QByteArray start = document.left(1024).toLower();
    return type == "text/html" || start.contains("<html") || start.contains("<!doctype html");
}

UpdateFailure failureOf(FeedFault fault, bool isWebPage) {
    if (isWebPage) {
        return {UpdateProblem::signInFirst, {}};
    }
    switch (fault) {
    case FeedFault::notSigned:
    case FeedFault::signatureWrong:
        return {UpdateProblem::feedNotSigned, {}};
    case FeedFault::superseded:
        return {UpdateProblem::feedSuperseded, {}};
    case FeedFault::expired:
        return {UpdateProblem::feedExpired, {}};
    case FeedFault::tooLarge:
        return {UpdateProblem::feedTooLarge, {}};
    case FeedFault::documentType:
    case FeedFault::tooDeep:
        return {UpdateProblem::feedForbidden, {}};
    case FeedFault::malformed:
    case FeedFault::notAFeed:
        break;
    }
    return {UpdateProblem::feedUnreadable, {}};
}

} // namespace

UpdateEngine::UpdateEngine(UpdateIdentity identity, UpdateLimits limits,
                           std::function<Installation()> examine)
    : identity_(std::move(identity)),
      limits_(limits),
      examine_(std::move(examine)),
      client_(identity_.trustAnchors, identity_.builtAt, limits) {
    client_.isWanted = [this] { return wanted_ == task_; };
}

void UpdateEngine::want(quint64 task) {
    wanted_ = task;
    client_.wake();
}

/// Whatever is started ends what was under way; what came too late is not started.
bool UpdateEngine::begin(quint64 task) {
    cancel();
    task_ = task;
    return client_.isWanted();
}

std::variant<UpdateEngine::Document, UpdateFailure>
UpdateEngine::fetch(HttpsRequest request, std::chrono::system_clock::time_point now) const {
    Document document;
    request.wholeTime = limits_.documentTime;
    request.onAnswer = [&](const HttpsAnswer& answer) {
        document.type = answer.contentType;
        return std::nullopt;
    };
    request.onBytes = [&](std::span<const std::byte> bytes) {
        document.text.append(reinterpret_cast<const char*>(bytes.data()),
                             static_cast<qsizetype>(bytes.size()));
        return std::nullopt;
    };
    if (auto failure = client_.get(request, now)) {
        return *std::move(failure);
    }
    return document;
}

void UpdateEngine::confirm() {
    const Installation installation = examine_();
    if (installation.management == Management::itself) {
        confirmStart(installation); // the launcher asks again where the disk refused
        removeLeftovers(installation);
    }
    emit happened(0, installation);
}

void UpdateEngine::check(quint64 task, const UpdateHost& host, Asking asking) {
    if (!begin(task)) {
        return;
    }
    CheckOutcome outcome{UpToDate{}, examine_()};
    UpdateHost present = host;
    present.highestInstalledVersion = outcome.installation.highestInstalledVersion;
    if (!outcome.installation.runningVersion.empty()) {
        present.installedVersion = outcome.installation.runningVersion;
    }
    const auto feed = fetchFeed(host);
    if (const auto* const failure = std::get_if<UpdateFailure>(&feed)) {
        outcome.answer = *failure;
    } else {
        const auto& [appcast, serial] = std::get<SignedAppcast>(feed);
        outcome.feedSerial = serial;
        std::visit([&](auto&& choice) { outcome.answer = std::forward<decltype(choice)>(choice); },
                   chooseUpdate(appcast, present, asking));
    }
    tell(std::move(outcome));
}

std::variant<SignedAppcast, UpdateFailure> UpdateEngine::fetchFeed(const UpdateHost& host) const {
    if (identity_.publicKey.empty()) {
        return UpdateFailure{UpdateProblem::noKey, {}};
    }
    auto feed = fetchFeedOnce(host);
    if (const auto* const refusal = std::get_if<FeedRefusal>(&feed);
        refusal != nullptr && refusal->fault == FeedFault::signatureWrong && client_.isWanted()) {
        feed = fetchFeedOnce(host); // the server's two files may just have been replaced
    }
    if (const auto* const refusal = std::get_if<FeedRefusal>(&feed)) {
        return failureOf(refusal->fault, refusal->isWebPage);
    }
    if (auto* const failure = std::get_if<UpdateFailure>(&feed)) {
        return std::move(*failure);
    }
    return std::get<SignedAppcast>(std::move(feed));
}

std::variant<SignedAppcast, UpdateFailure, UpdateEngine::FeedRefusal>
UpdateEngine::fetchFeedOnce(const UpdateHost& host) const {
    const auto fetched = fetch({.url = identity_.feed,
                                .accept = "application/rss+xml, application/xml;q=0.9, */*;q=0.1",
                                .largest = limits_.feedBytes},
                               host.now);
    if (const auto* const failure = std::get_if<UpdateFailure>(&fetched)) {
        return failure->problem == UpdateProblem::wrongLength
                   ? UpdateFailure{UpdateProblem::feedTooLarge, {}}
                   : *failure;
    }
    QUrl address = identity_.feed;
    address.setPath(address.path() + QString::fromStdString(std::string(feedStatementSuffix)));
    const auto beside =
        fetch({.url = address, .accept = "text/plain, */*;q=0.1", .largest = largestFeedStatement},
              host.now);
    QByteArray statement;
    if (const auto* const found = std::get_if<Document>(&beside)) {
        statement = found->text;
    } else if (const auto& failure = std::get<UpdateFailure>(beside);
               failure.problem != UpdateProblem::notOnServer &&
               failure.problem != UpdateProblem::wrongLength) {
        return failure; // of those two there is none, or something else in its place
    }
    const auto& [document, type] = std::get<Document>(fetched);
    auto read = readSignedAppcast(
        std::as_bytes(std::span(document.data(), static_cast<std::size_t>(document.size()))),
        {statement.constData(), static_cast<std::size_t>(statement.size())},
        // No clock that is right shows a time before the program was built.
        {identity_.publicKey, host.feedSerial, std::max(host.now, identity_.builtAt)});
    if (const auto* const fault = std::get_if<FeedFault>(&read)) {
        return FeedRefusal{*fault, looksLikeWebPage(document, type)};
    }
    return std::get<SignedAppcast>(std::move(read));
}

void UpdateEngine::loadNotes(quint64 task, const QUrl& url,
                             std::chrono::system_clock::time_point now) {
    if (!begin(task)) {
        return;
    }
    ReleaseNotes notes{{}, url};
    const auto fetched = fetch(
        {.url = url, .accept = "text/html, text/plain;q=0.9", .largest = limits_.notesBytes}, now);
    if (const auto* const document = std::get_if<Document>(&fetched)) {
        const std::string_view source(document->text.constData(),
                                      static_cast<std::size_t>(document->text.size()));
        notes.safe = document->type == "text/plain" ? htmlOfText(source) : safeHtml(source);
    }
    tell(notes);
}

void UpdateEngine::prepare(quint64 task, const AppcastEnclosure& enclosure,
                           const InstallOrder& order, std::chrono::system_clock::time_point now) {
    if (!begin(task)) {
        return;
    }
    ArchiveDownload download(client_, limits_,
                             [this](const DownloadProgress& progress) { tell(progress); });
    const auto got =
        download.get(QUrl::fromEncoded(QByteArray::fromStdString(enclosure.url), QUrl::StrictMode),
                     enclosure.length, now);
    if (const auto* const failure = std::get_if<UpdateFailure>(&got)) {
        tell(*failure);
    } else if (client_.isWanted()) {
        unpack(order, std::get<platform::SealedFile>(got));
    }
}

void UpdateEngine::unpack(const InstallOrder& order, const platform::SealedFile& archive) {
    installer_ = std::make_unique<InstallClient>();
    connect(installer_.get(), &InstallClient::unpacking, this, [this](quint64 done, quint64 total) {
        const auto share = static_cast<double>(done) / static_cast<double>(std::max(total, 1ULL));
        tell(UnpackingProgress{std::min(share, 1.0)});
    });
    connect(installer_.get(), &InstallClient::ready, this, [this] { tell(ReadyToInstall{}); });
    connect(installer_.get(), &InstallClient::installed, this, [this] { tell(IsInstalled{}); });
    connect(installer_.get(), &InstallClient::failed, this,
            [this](const UpdateFailure& failure) { tell(failure); });
    installer_->start(order, archive);
}

void UpdateEngine::install() {
    if (installer_ != nullptr) {
        installer_->install();
    }
}

} // namespace updates
