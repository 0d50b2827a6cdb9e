#include "platform/updates/session/https_fetch.hpp"

#include <QDateTime>
#include <QLocale>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QRegularExpression>
#include <QSslConfiguration>

#include <algorithm>
#include <array>
#include <utility>

namespace platform {
namespace {

constexpr std::size_t pieceSize = 16 << 10;
constexpr qint64 bufferSize = 1 << 20;

QDateTime dateOf(std::chrono::system_clock::time_point time) {
    return QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(time));
}

std::optional<std::uint64_t> numberOf(const QByteArray& text) {
    bool isNumber = false;
    const qulonglong number = text.trimmed().toULongLong(&isNumber);
    return isNumber ? std::optional<std::uint64_t>(number) : std::nullopt;
}

HttpsAnswer answerOf(const QNetworkReply& reply, int status) {
    HttpsAnswer answer;
    answer.isPartial = status == 206;
    answer.length = numberOf(reply.rawHeader("Content-Length"));
    const QByteArray type = reply.rawHeader("Content-Type").toLower();
    answer.contentType = type.left(type.indexOf(';')).trimmed();
    static const QRegularExpression range(QStringLiteral("^bytes (\\d+)-\\d+/(\\d+|\\*)$"));
    const auto found = range.match(QString::fromLatin1(reply.rawHeader("Content-Range").trimmed()));
    if (answer.isPartial && found.hasMatch()) {
        answer.firstByte = numberOf(found.captured(1).toLatin1());
        answer.wholeLength = numberOf(found.captured(2).toLatin1());
    } else if (!answer.isPartial) {
        answer.wholeLength = answer.length;
    }
    const QByteArray tag = reply.rawHeader("ETag").trimmed();
    answer.validator = tag.startsWith('"') ? tag : reply.rawHeader("Last-Modified").trimmed();
    return answer;
}

} // namespace

HttpsFetch::HttpsFetch(const HttpsClient& client, const UpdateLimits& limits, QObject* parent)
    : QObject(parent), client_(client), limits_(limits) {
    for (QTimer* const timer : {&whole_, &quiet_}) {
        timer->setSingleShot(true);
    }
    connect(&whole_, &QTimer::timeout, this, [this] {
        finish(UpdateFailure{UpdateProblem::tooSlow, {}});
    });
    connect(&quiet_, &QTimer::timeout, this, [this] {
        finish(UpdateFailure{isAnswered_ ? UpdateProblem::tooSlow : UpdateProblem::noAnswer, {}});
    });
}

HttpsFetch::~HttpsFetch() {
    abort();
}

void HttpsFetch::start(const HttpsRequest& request) {
    request_ = request;
    url_ = request.url;
    whole_.start(request.wholeTime);
    ask();
}

void HttpsFetch::abort() {
    isFinished_ = true;
    whole_.stop();
    quiet_.stop();
    if (reply_ != nullptr) {
        drop(*std::exchange(reply_, nullptr));
    }
}

/// Replies must not be aborted while they are telling something.
void HttpsFetch::drop(QNetworkReply& reply) {
    reply.disconnect(this);
    QMetaObject::invokeMethod(
        &reply,
        [&reply] {
            reply.abort();
            reply.deleteLater();
        },
        Qt::QueuedConnection);
}

void HttpsFetch::finish(const std::optional<UpdateFailure>& failure) {
    if (!isFinished_) {
        abort();
        emit finished(failure);
    }
}

void HttpsFetch::ask() {
    if (url_.scheme() != QStringLiteral("https") || url_.host().isEmpty()) {
        finish(UpdateFailure{UpdateProblem::insecureAddress, url_.toDisplayString()});
        return;
    }
    QNetworkRequest request(url_);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setRawHeader("Accept", request_.accept);
    // Nobody is told more than that somebody asks: neither the toolkit nor the user's language.
    request.setRawHeader("User-Agent", "updater");
    request.setRawHeader("Accept-Language", "*");
    // The bytes are signed and measured as they stand; nobody shall unpack them on the way.
    request.setRawHeader("Accept-Encoding", "identity");
    if (request_.offset > 0) {
        request.setRawHeader("Range", "bytes=" + QByteArray::number(request_.offset) + '-');
        request.setRawHeader("If-Range", request_.validator);
    }
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setProtocol(QSsl::TlsV1_2OrLater);
    if (!client_.trustAnchors.isEmpty()) {
        tls.setCaCertificates(client_.trustAnchors);
    }
    request.setSslConfiguration(tls);

    isAnswered_ = false;
    tlsErrors_.clear();
    reply_ = client_.network->get(request);
    reply_->setReadBufferSize(bufferSize);
    connect(reply_, &QNetworkReply::sslErrors, this,
            [this](const QList<QSslError>& errors) { tlsErrors_ = errors; });
    connect(reply_, &QNetworkReply::metaDataChanged, this, &HttpsFetch::hearHeaders);
    connect(reply_, &QNetworkReply::readyRead, this, &HttpsFetch::hearBytes);
    connect(reply_, &QNetworkReply::finished, this, &HttpsFetch::hearEnd);
    quiet_.start(limits_.answerTime);
}

void HttpsFetch::hearHeaders() {
    if (isAnswered_ || isFinished_) {
        return;
    }
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status < 200) {
        return;
    }
    isAnswered_ = true;
    quiet_.start(limits_.stallTime);
    if (status == 301 || status == 302 || status == 303 || status == 307 || status == 308) {
        follow(reply_->rawHeader("Location"));
        return;
    }
    std::optional<UpdateFailure> failure;
    if (status == 404 || status == 410) {
        failure = {UpdateProblem::notOnServer, url_.host()};
    } else if (status == 511) { // what a network says that wants to be signed in to
        failure = {UpdateProblem::signInFirst, {}};
    } else if (status == 416) { // what is there ends before the part that was asked for
        failure = {UpdateProblem::wrongLength, {}};
    } else if (status != 200 && (status != 206 || request_.offset == 0)) {
        failure = {UpdateProblem::serverError, QString::number(status)};
    } else {
        const HttpsAnswer answer = answerOf(*reply_, status);
        if (answer.length.value_or(0) > request_.largest) {
            failure = {UpdateProblem::wrongLength, {}};
        } else if (onAnswer) {
            failure = onAnswer(answer);
        }
    }
    if (failure) {
        finish(failure);
    }
}

void HttpsFetch::follow(const QByteArray& location) {
    drop(*std::exchange(reply_, nullptr));
    quiet_.stop();
    if (++redirects_ > limits_.redirects) {
        finish(UpdateFailure{UpdateProblem::tooManyRedirects, {}});
        return;
    }
    if (location.isEmpty()) {
        finish(UpdateFailure{UpdateProblem::serverError, QStringLiteral("302")});
        return;
    }
    url_ = url_.resolved(QUrl::fromEncoded(location, QUrl::StrictMode));
    url_.setUserInfo({});
    ask();
}

void HttpsFetch::hearBytes() {
    std::array<char, pieceSize> piece;
    // What comes with an answer that was not taken is nobody's.
    while (!isFinished_ && isAnswered_ && reply_ != nullptr) {
        const qint64 size = reply_->read(piece.data(), static_cast<qint64>(piece.size()));
        if (size <= 0) {
            return;
        }
        quiet_.start(limits_.stallTime);
        received_ += static_cast<std::uint64_t>(size);
        if (received_ > request_.largest) {
            finish(UpdateFailure{UpdateProblem::wrongLength, {}});
            return;
        }
        if (const auto failure =
                onBytes(std::as_bytes(std::span(piece.data(), static_cast<std::size_t>(size))))) {
            finish(failure);
        }
    }
}

void HttpsFetch::hearEnd() {
    hearHeaders();
    if (isFinished_ || reply_ == nullptr) {
        return;
    }
    hearBytes();
    if (isFinished_) {
        return;
    }
    if (reply_->error() != QNetworkReply::NoError) {
        finish(failureOf(reply_->error()));
    } else if (!isAnswered_) {
        finish(UpdateFailure{UpdateProblem::noAnswer, {}});
    } else {
        finish(std::nullopt);
    }
}

UpdateFailure HttpsFetch::failureOf(QNetworkReply::NetworkError error) const {
    if (!tlsErrors_.isEmpty()) {
        return failureOf(tlsErrors_);
    }
    switch (error) {
    case QNetworkReply::SslHandshakeFailedError:
        return {UpdateProblem::certificateUntrusted, url_.host()};
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
        return {UpdateProblem::offline, url_.host()};
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyTimeoutError:
    case QNetworkReply::ProxyAuthenticationRequiredError:
    case QNetworkReply::UnknownProxyError:
        return {UpdateProblem::proxyRefused, {}};
    default:
        return isAnswered_ ? UpdateFailure{UpdateProblem::connectionLost, {}}
                           : UpdateFailure{UpdateProblem::noAnswer, url_.host()};
    }
}

/// A certificate that is fine but for its dates: either it is not, or the clock is not. Nobody
/// serves one that begins tomorrow, or that ended a season ago; and the program knows one moment
/// that no clock can be before.
UpdateFailure HttpsFetch::failureOf(const QList<QSslError>& errors) const {
    using namespace std::chrono_literals;
    constexpr auto season = 90 * 24h;
    bool isClockWrong = client_.now < client_.builtAt - 24h;
    for (const QSslError& error : errors) {
        if (error.error() == QSslError::CertificateNotYetValid) {
            isClockWrong = true;
        } else if (error.error() == QSslError::CertificateExpired) {
            const QDateTime end = error.certificate().expiryDate();
            isClockWrong = isClockWrong || end < dateOf(client_.now - season);
        } else {
            return {UpdateProblem::certificateUntrusted, url_.host()};
        }
    }
    if (isClockWrong) {
        return {UpdateProblem::clockLooksWrong,
                QLocale().toString(dateOf(client_.now).date(), QLocale::LongFormat)};
    }
    return {UpdateProblem::certificateExpired, url_.host()};
}

} // namespace platform
