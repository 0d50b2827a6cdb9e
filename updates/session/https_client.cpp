#include "updates/session/https_client.hpp"

#include <QDateTime>
#include <QHostAddress>
#include <QLocale>
#include <QNetworkProxyFactory>
#include <QRegularExpression>

#include <curl/curl.h>
#include <openssl/ssl.h>

#include <algorithm>
#include <ctime>
#include <utility>

namespace updates {
namespace {

using Clock = std::chrono::steady_clock;
using MaybeFailure = std::optional<UpdateFailure>;

QDateTime dateOf(HttpsClient::Time time) {
    return QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(time));
}

std::optional<std::uint64_t> numberOf(const QByteArray& text) {
    bool isNumber = false;
    const qulonglong number = text.toULongLong(&isNumber);
    return isNumber ? std::optional<std::uint64_t>(number) : std::nullopt;
}

/// The proxy of the user's system, for everything that is not on this very machine.
QNetworkProxy proxyFor(const QUrl& url) {
    if (url.host() == QStringLiteral("localhost") || QHostAddress(url.host()).isLoopback()) {
        return QNetworkProxy::NoProxy;
    }
    return QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url)).value(0);
}

template<class Value>
Value infoOf(CURL* handle, CURLINFO what) {
    Value value{};
    curl_easy_getinfo(handle, what, &value);
    return value;
}

/// A header of the final answer, not of a proxy's or of an earlier one.
QByteArray headerOf(CURL* handle, const char* name) {
    curl_header* header = nullptr;
    return curl_easy_header(handle, name, 0, CURLH_HEADER, -1, &header) == CURLHE_OK
               ? QByteArray(header->value).trimmed()
               : QByteArray();
}

HttpsAnswer answerOf(CURL* handle, bool isPartial) {
    HttpsAnswer answer;
    answer.isPartial = isPartial;
    answer.length = numberOf(headerOf(handle, "Content-Length"));
    const QByteArray type = headerOf(handle, "Content-Type").toLower();
    answer.contentType = type.left(type.indexOf(';')).trimmed();
    static const QRegularExpression range(QStringLiteral("^bytes (\\d+)-\\d+/(\\d+|\\*)$"));
    const auto found = range.match(QString::fromLatin1(headerOf(handle, "Content-Range")));
    if (isPartial && found.hasMatch()) {
        answer.firstByte = numberOf(found.captured(1).toLatin1());
        answer.wholeLength = numberOf(found.captured(2).toLatin1());
    } else if (!isPartial) {
        answer.wholeLength = answer.length;
    }
    const QByteArray tag = headerOf(handle, "ETag");
    answer.validator = tag.startsWith('"') ? tag : headerOf(handle, "Last-Modified");
    return answer;
}

} // namespace

struct HttpsClient::Transfer {
    const HttpsRequest& request;
    const UpdateLimits& limits;
    const Time now;
    const Clock::time_point end;
    QUrl url; // after the redirects so far
    QByteArray location = {};
    CURL* handle = nullptr;
    std::size_t headerBytes = 0;
    std::uint64_t received = 0;
    Clock::time_point quietEnd = {};
    bool isAnswered = false;
    MaybeFailure refusal = {}; // ours of what came
    int certificateError = X509_V_OK;
    Time certificateEnd = {};

    /// One line of a head, its end included, also of a proxy's; false ends it all.
    bool hearHeader(std::span<const char> line) {
        headerBytes += line.size();
        const auto status = infoOf<long>(handle, CURLINFO_RESPONSE_CODE); // 0: it is the proxy's
        if (headerBytes > limits.headerBytes) {
            refusal = {status == 0 ? UpdateProblem::proxyRefused : UpdateProblem::wrongLength, {}};
        } else if ((line[0] == '\r' || line[0] == '\n') && status >= 200) {
            isAnswered = true;
            quietEnd = Clock::now() + limits.stallTime;
            refusal = hearHead(status);
        }
        return !refusal && location.isEmpty();
    }

    MaybeFailure hearHead(long status) {
        switch (status) {
        case 301:
        case 302:
        case 303:
        case 307:
        case 308:
            location = headerOf(handle, "Location");
            return location.isEmpty() ? MaybeFailure({UpdateProblem::serverError, "302"})
                                      : std::nullopt;
        case 404:
        case 410:
            return UpdateFailure{UpdateProblem::notOnServer, url.host()};
        case 416: // what is there ends before the part that was asked for
            return UpdateFailure{UpdateProblem::wrongLength, {}};
        case 511: // what a network says that wants to be signed in to
            return UpdateFailure{UpdateProblem::signInFirst, {}};
        default:
            break;
        }
        if (status != 200 && (status != 206 || request.offset == 0)) {
            return UpdateFailure{UpdateProblem::serverError, QString::number(status)};
        }
        const HttpsAnswer answer = answerOf(handle, status == 206);
        if (answer.length.value_or(0) > request.largest) {
            return UpdateFailure{UpdateProblem::wrongLength, {}};
        }
        return request.onAnswer ? request.onAnswer(answer) : std::nullopt;
    }

    bool hearBytes(std::span<const char> bytes) {
        quietEnd = Clock::now() + limits.stallTime;
        received += bytes.size();
        refusal = received > request.largest ? UpdateFailure{UpdateProblem::wrongLength, {}}
                                             : request.onBytes(std::as_bytes(bytes));
        return !refusal;
    }

    [[nodiscard]] MaybeFailure lateness() const {
        const auto present = Clock::now();
        if (present >= end || (isAnswered && present >= quietEnd)) {
            return UpdateFailure{UpdateProblem::tooSlow, {}};
        }
        return present >= quietEnd ? MaybeFailure({UpdateProblem::noAnswer, {}}) : std::nullopt;
    }

    /// What the library's verdict means to a person.
    [[nodiscard]] UpdateFailure failureOf(CURLcode code, bool isProxied, Time builtAt) const {
        switch (code) {
        case CURLE_PEER_FAILED_VERIFICATION:
            return certificateFailure(builtAt);
        case CURLE_SSL_CONNECT_ERROR:
            return {UpdateProblem::certificateUntrusted, url.host()};
        case CURLE_COULDNT_RESOLVE_HOST:
            return {UpdateProblem::offline, url.host()};
        default:
            break;
        }
        if (isAnswered) {
            return {UpdateProblem::connectionLost, {}};
        }
        if (isProxied && infoOf<long>(handle, CURLINFO_HTTP_CONNECTCODE) / 100 != 2) {
            return {UpdateProblem::proxyRefused, {}};
        }
        // A line of the head without an end is more than the library takes.
        return code == CURLE_OUT_OF_MEMORY ? UpdateFailure{UpdateProblem::wrongLength, {}}
                                           : UpdateFailure{UpdateProblem::noAnswer, url.host()};
    }

    /// A certificate that is fine but for its dates: either it is not, or the clock is not. Nobody
    /// serves one that begins tomorrow, or that ended a season ago; and the program knows one
    /// moment that no clock can be before.
    [[nodiscard]] UpdateFailure certificateFailure(Time builtAt) const {
        using namespace std::chrono_literals;
        constexpr auto season = 90 * 24h;
        if (certificateError != X509_V_ERR_CERT_NOT_YET_VALID &&
            certificateError != X509_V_ERR_CERT_HAS_EXPIRED) {
            return {UpdateProblem::certificateUntrusted, url.host()};
        }
        if (certificateError == X509_V_ERR_CERT_NOT_YET_VALID || now < builtAt - 24h ||
            certificateEnd < now - season) {
            return {UpdateProblem::clockLooksWrong,
                    QLocale().toString(dateOf(now).date(), QLocale::LongFormat)};
        }
        return {UpdateProblem::certificateExpired, url.host()};
    }

    /// Has OpenSSL tell what it has against a certificate, which the library keeps to itself.
    static CURLcode watchCertificates(CURL*, void* context, void* transfer) {
        static const int place = SSL_CTX_get_ex_new_index(0, nullptr, nullptr, nullptr, nullptr);
        auto* const tls = static_cast<SSL_CTX*>(context);
        SSL_CTX_set_ex_data(tls, place, transfer);
        SSL_CTX_set_verify(tls, SSL_VERIFY_PEER, [](int isFine, X509_STORE_CTX* store) {
            if (isFine == 0) {
                const auto* const ssl = static_cast<const SSL*>(
                    X509_STORE_CTX_get_ex_data(store, SSL_get_ex_data_X509_STORE_CTX_idx()));
                auto& self =
                    *static_cast<Transfer*>(SSL_CTX_get_ex_data(SSL_get_SSL_CTX(ssl), place));
                self.certificateError = X509_STORE_CTX_get_error(store);
                std::tm date{};
                const X509* const certificate = X509_STORE_CTX_get_current_cert(store);
                if (certificate != nullptr &&
                    ASN1_TIME_to_tm(X509_get0_notAfter(certificate), &date) == 1) {
                    self.certificateEnd = std::chrono::system_clock::from_time_t(timegm(&date));
                }
            }
            return isFine;
        });
        return CURLE_OK;
    }
};

HttpsClient::HttpsClient(QByteArray trustAnchors, Time builtAt, const UpdateLimits& limits)
    : trustAnchors_(std::move(trustAnchors)),
      builtAt_(builtAt),
      limits_(limits),
      multi_((curl_global_init(CURL_GLOBAL_DEFAULT), curl_multi_init())) {}

HttpsClient::~HttpsClient() = default;

void HttpsClient::CloseMulti::operator()(void* multi) const {
    curl_multi_cleanup(multi);
}

void HttpsClient::wake() const {
    curl_multi_wakeup(multi_.get());
}

void HttpsClient::pause(std::chrono::milliseconds time) const {
    const auto end = Clock::now() + time;
    for (auto present = Clock::now(); present < end && isWanted(); present = Clock::now()) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - present);
        curl_multi_poll(multi_.get(), nullptr, 0, static_cast<int>(left.count()), nullptr);
    }
}

MaybeFailure HttpsClient::get(const HttpsRequest& request, Time now) const {
    Transfer transfer{request, limits_, now, Clock::now() + request.wholeTime, request.url};
    for (int redirects = 0;; ++redirects) {
        if (transfer.url.scheme() != QStringLiteral("https") || transfer.url.host().isEmpty()) {
            return UpdateFailure{UpdateProblem::insecureAddress, transfer.url.toDisplayString()};
        }
        const auto failure = ask(transfer);
        if (failure || transfer.location.isEmpty()) {
            return failure;
        }
        if (redirects == limits_.redirects) {
            return UpdateFailure{UpdateProblem::tooManyRedirects, {}};
        }
        transfer.url = transfer.url.resolved(
            QUrl::fromEncoded(std::exchange(transfer.location, {}), QUrl::StrictMode));
        transfer.url.setUserInfo({}); // nobody signs in anywhere
    }
}

MaybeFailure HttpsClient::ask(Transfer& transfer) const {
    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> owner(curl_easy_init(),
                                                                    &curl_easy_cleanup);
    CURL* const handle = owner.get();
    if (handle == nullptr || multi_ == nullptr) {
        return UpdateFailure{UpdateProblem::noMemory, {}};
    }
    const HttpsRequest& request = transfer.request;
    // Nobody is told more than that somebody asks: neither the library nor the user's language. The
    // bytes are signed and measured as they stand; nobody shall unpack them on the way.
    QByteArrayList lines{"Accept: " + request.accept, "User-Agent: updater", "Accept-Language: *",
                         "Accept-Encoding: identity", "Cache-Control: no-cache"};
    if (request.offset > 0) {
        lines << "Range: bytes=" + QByteArray::number(request.offset) + '-'
              << "If-Range: " + request.validator;
    }
    curl_slist* headers = nullptr;
    for (const QByteArray& line : lines) {
        headers = curl_slist_append(headers, line.constData());
    }
    const std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> headerOwner(
        headers, &curl_slist_free_all);
    const QNetworkProxy proxy = proxyFor(transfer.url);
    const bool isProxied = !proxy.hostName().isEmpty();
    const QString proxyUrl =
        QStringLiteral("%1://%2:%3")
            .arg(proxy.type() == QNetworkProxy::Socks5Proxy ? "socks5h" : "http", proxy.hostName())
            .arg(proxy.port());

    transfer.handle = handle;
    transfer.headerBytes = 0;
    transfer.isAnswered = false;
    transfer.quietEnd = Clock::now() + limits_.answerTime;
    curl_easy_setopt(handle, CURLOPT_URL, transfer.url.toEncoded().constData());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "https");
    curl_easy_setopt(handle, CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_1_1});
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers);
    curl_easy_setopt(handle, CURLOPT_PROXY, isProxied ? proxyUrl.toUtf8().constData() : "");
    if (!proxy.user().isEmpty()) {
        curl_easy_setopt(handle, CURLOPT_PROXYUSERNAME, proxy.user().toUtf8().constData());
        curl_easy_setopt(handle, CURLOPT_PROXYPASSWORD, proxy.password().toUtf8().constData());
    }
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle, CURLOPT_QUICK_EXIT, 1L); // waits for no answer from name servers
    // Nothing is kept from one request to the next.
    curl_easy_setopt(handle, CURLOPT_FORBID_REUSE, 1L);
    curl_easy_setopt(handle, CURLOPT_SSL_SESSIONID_CACHE, 0L);
    curl_easy_setopt(handle, CURLOPT_CA_CACHE_TIMEOUT, 0L);
    curl_easy_setopt(handle, CURLOPT_SSLVERSION, long{CURL_SSLVERSION_TLSv1_2});
    curl_easy_setopt(handle, CURLOPT_SSL_CTX_FUNCTION, &Transfer::watchCertificates);
    curl_easy_setopt(handle, CURLOPT_SSL_CTX_DATA, &transfer);
    curl_blob anchors{const_cast<char*>(trustAnchors_.constData()),
                      static_cast<std::size_t>(trustAnchors_.size()), CURL_BLOB_NOCOPY};
    if (!trustAnchors_.isEmpty()) {
        curl_easy_setopt(handle, CURLOPT_CAINFO_BLOB, &anchors);
        curl_easy_setopt(handle, CURLOPT_CAPATH, nullptr);
    }
    using Hear = std::size_t (*)(char*, std::size_t, std::size_t, void*);
    curl_easy_setopt(handle, CURLOPT_HEADERDATA, &transfer);
    curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION,
                     Hear([](char* line, std::size_t, std::size_t size, void* self) {
                         return static_cast<Transfer*>(self)->hearHeader({line, size}) ? size : 0;
                     }));
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &transfer);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION,
                     Hear([](char* bytes, std::size_t, std::size_t size, void* self) {
                         return static_cast<Transfer*>(self)->hearBytes({bytes, size}) ? size : 0;
                     }));

    curl_multi_add_handle(multi_.get(), handle);
    const auto untilLate = [&transfer] {
        const auto next = std::min(transfer.end, transfer.quietEnd) - Clock::now();
        return static_cast<int>(std::max<std::chrono::milliseconds::rep>(
            0, std::chrono::ceil<std::chrono::milliseconds>(next).count()));
    };
    MaybeFailure failure;
    for (int running = 1;;) {
        curl_multi_perform(multi_.get(), &running);
        if (running == 0) {
            int left = 0;
            const CURLMsg* const message = curl_multi_info_read(multi_.get(), &left);
            const CURLcode code = message != nullptr ? message->data.result : CURLE_OK;
            if (transfer.refusal || code == CURLE_OK || !transfer.location.isEmpty()) {
                failure = transfer.refusal;
            } else {
                failure = transfer.failureOf(code, isProxied, builtAt_);
            }
            break;
        }
        failure =
            isWanted() ? transfer.lateness() : MaybeFailure({UpdateProblem::connectionLost, {}});
        if (failure) {
            break;
        }
        curl_multi_poll(multi_.get(), nullptr, 0, untilLate(), nullptr);
    }
    curl_multi_remove_handle(multi_.get(), handle);
    return failure;
}

} // namespace updates
