#include "platform/updates/session/update_engine.hpp"

#include "platform/updates/feed/appcast_reader.hpp"
#include "platform/updates/session/safe_html.hpp"

#include <QHostAddress>
#include <QNetworkProxyFactory>

#include <algorithm>
#include <utility>

namespace platform {
namespace {

/// The proxies of the user's system, for everything that is not on this very machine.
class SystemProxies final : public QNetworkProxyFactory {
  public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
        const QString host = query.peerHostName();
        if (host == QStringLiteral("localhost") || QHostAddress(host).isLoopback()) {
            return {QNetworkProxy(QNetworkProxy::NoProxy)};
        }
        return systemProxyForQuery(query);
    }
};

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
    : identity_(std::move(identity)), limits_(limits), examine_(std::move(examine)) {}

UpdateEngine::~UpdateEngine() {
    cancel();
}

void UpdateEngine::cancel() {
    installer_.reset();
    download_.reset();
    fetch_.reset();
    document_ = {};
    network_.reset(); // with its connections, their keys and what they have in store
}

void UpdateEngine::begin(quint64 task, std::chrono::system_clock::time_point now) {
    cancel();
    task_ = task;
    network_ = std::make_unique<QNetworkAccessManager>();
    network_->setProxyFactory(new SystemProxies); // the manager's from here on
    client_.network = network_.get();
    client_.now = now;
    client_.builtAt = identity_.builtAt;
    if (!identity_.trustAnchors.isEmpty()) {
        client_.trustAnchors = QSslCertificate::fromData(identity_.trustAnchors, QSsl::Pem);
    }
}

void UpdateEngine::fetchDocument(const HttpsRequest& request,
                                 std::function<void(const std::optional<UpdateFailure>&)> end) {
    fetch_ = std::make_unique<HttpsFetch>(client_, limits_);
    fetch_->onAnswer = [this](const HttpsAnswer& answer) {
        documentType_ = answer.contentType;
        return std::nullopt;
    };
    fetch_->onBytes = [this](std::span<const std::byte> bytes) {
        document_.append(reinterpret_cast<const char*>(bytes.data()),
                         static_cast<qsizetype>(bytes.size()));
        return std::nullopt;
    };
    connect(fetch_.get(), &HttpsFetch::finished, this, std::move(end));
    fetch_->start(request);
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
    begin(task, host.now);
    const Installation installation = examine_();
    UpdateHost present = host;
    present.highestInstalledVersion = installation.highestInstalledVersion;
    if (!installation.runningVersion.empty()) {
        present.installedVersion = installation.runningVersion;
    }
    const auto end = [this, present, installation,
                      asking](const std::optional<UpdateFailure>& failure) {
        const QByteArray document = std::exchange(document_, {});
        network_.release()->deleteLater(); // it is still telling
        fetch_.release()->deleteLater();
        if (failure) {
            tell(CheckOutcome{failure->problem == UpdateProblem::wrongLength
                                  ? UpdateFailure{UpdateProblem::feedTooLarge, {}}
                                  : *failure,
                              installation});
            return;
        }
        const auto read = readAppcast(
            std::as_bytes(std::span(document.data(), static_cast<std::size_t>(document.size()))));
        if (const auto* const fault = std::get_if<FeedFault>(&read)) {
            tell(CheckOutcome{failureOf(*fault, looksLikeWebPage(document, documentType_)),
                              installation});
            return;
        }
        const auto choice = chooseUpdate(std::get<Appcast>(read), present, asking);
        tell(std::visit([&](const auto& one) { return CheckOutcome{one, installation}; }, choice));
    };
    fetchDocument({.url = identity_.feed,
                   .accept = "application/rss+xml, application/xml;q=0.9, */*;q=0.1",
                   .largest = limits_.feedBytes,
                   .wholeTime = limits_.documentTime},
                  end);
}

void UpdateEngine::loadNotes(quint64 task, const QUrl& url,
                             std::chrono::system_clock::time_point now) {
    begin(task, now);
    const auto end = [this](const std::optional<UpdateFailure>& failure) {
        const QByteArray text = std::exchange(document_, {});
        network_.release()->deleteLater();
        fetch_.release()->deleteLater();
        const std::string_view source(text.constData(), static_cast<std::size_t>(text.size()));
        tell(ReleaseNotes{QByteArray::fromStdString(failure ? std::string()
                                                    : documentType_ == "text/plain"
                                                        ? htmlOfText(source)
                                                        : safeHtml(source))});
    };
    fetchDocument({.url = url,
                   .accept = "text/html, text/plain;q=0.9",
                   .largest = limits_.notesBytes,
                   .wholeTime = limits_.documentTime},
                  end);
}

void UpdateEngine::prepare(quint64 task, const AppcastEnclosure& enclosure,
                           const InstallOrder& order, std::chrono::system_clock::time_point now) {
    begin(task, now);
    download_ = std::make_unique<ArchiveDownload>(client_, limits_);
    connect(download_.get(), &ArchiveDownload::progressed, this,
            [this](const DownloadProgress& progress) { tell(progress); });
    connect(download_.get(), &ArchiveDownload::finished, this,
            [this, order](const std::optional<UpdateFailure>& failure) {
                if (failure) {
                    tell(*failure);
                } else {
                    unpack(order);
                }
            });
    download_->start(QUrl::fromEncoded(QByteArray::fromStdString(enclosure.url), QUrl::StrictMode),
                     enclosure.length);
}

void UpdateEngine::unpack(const InstallOrder& order) {
    const SealedFile archive = download_->takeArchive();
    download_.release()->deleteLater(); // it is still telling
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

} // namespace platform
