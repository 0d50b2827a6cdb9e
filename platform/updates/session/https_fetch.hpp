#pragma once

#include "platform/updates/session/update_limits.hpp"
#include "platform/updates/session/update_problem.hpp"

#include <QByteArray>
#include <QNetworkReply>
#include <QObject>
#include <QSslCertificate>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <span>

class QNetworkAccessManager;

namespace platform {

/// What the fetches of one updater have in common. It outlives them.
struct HttpsClient {
    QNetworkAccessManager* network = nullptr;
    QList<QSslCertificate> trustAnchors; ///< empty: those of the system
    std::chrono::system_clock::time_point now;
    std::chrono::system_clock::time_point builtAt; ///< no clock before this one is right
};

struct HttpsRequest {
    QUrl url;
    QByteArray accept = "*/*";
    std::uint64_t largest = 0;             ///< bytes of the body
    std::chrono::milliseconds wholeTime{}; ///< from the first request to the last byte
    /// To go on from here: the first byte wanted, and the validator of what is there already.
    std::uint64_t offset = 0;
    QByteArray validator = {};
};

/// The headers of the final answer, which is 200 or 206.
struct HttpsAnswer {
    bool isPartial = false;
    std::optional<std::uint64_t> firstByte; ///< of a partial one
    std::optional<std::uint64_t> length;    ///< of this body
    std::optional<std::uint64_t> wholeLength;
    QByteArray contentType; ///< lower case, without parameters
    QByteArray validator;   ///< a strong entity tag or else the date of the last change
};

/// Gets one document over https and nothing else: every redirect is followed by hand, to https
/// only. Bounded in size and time; what comes is handed on at once, decompressed by nobody. One
/// fetch per object, on the thread of the client's network.
class HttpsFetch final : public QObject {
    Q_OBJECT

  public:
    HttpsFetch(const HttpsClient& client, const UpdateLimits& limits, QObject* parent = nullptr);
    ~HttpsFetch() override;

    /// Called with the headers; a failure refuses them.
    std::function<std::optional<UpdateFailure>(const HttpsAnswer&)> onAnswer;
    /// Called with each piece of the body; a failure refuses it.
    std::function<std::optional<UpdateFailure>(std::span<const std::byte>)> onBytes;

    void start(const HttpsRequest& request);
    /// Ends it without another word.
    void abort();

  signals:
    /// Nothing: the body is complete as far as the server told its length.
    void finished(const std::optional<platform::UpdateFailure>& failure);

  private:
    void ask();
    void hearHeaders();
    void hearBytes();
    void hearEnd();
    void follow(const QByteArray& location);
    void drop(QNetworkReply& reply);
    void finish(const std::optional<UpdateFailure>& failure);
    [[nodiscard]] UpdateFailure failureOf(QNetworkReply::NetworkError error) const;
    [[nodiscard]] UpdateFailure failureOf(const QList<QSslError>& errors) const;

    const HttpsClient& client_;
    const UpdateLimits& limits_;
    HttpsRequest request_;
    QUrl url_; // after the redirects so far
    int redirects_ = 0;
    QNetworkReply* reply_ = nullptr;
    QList<QSslError> tlsErrors_;
    std::uint64_t received_ = 0;
    bool isAnswered_ = false;
    bool isFinished_ = false;
    QTimer whole_;
    QTimer quiet_; // until the headers, then between bytes
};

} // namespace platform
