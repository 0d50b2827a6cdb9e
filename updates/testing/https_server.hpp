#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QPointer>
#include <QSslServer>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <functional>
#include <memory>

class QSslSocket;

namespace updates::testing {

/// Certificates that only those trust who were told to, made by OpenSSL's own tool.
class CertificateFolder {
  public:
    CertificateFolder();

    [[nodiscard]] QByteArray authority() const; ///< PEM
    /// Makes a certificate for this machine; the dates are as in YYYYMMDDHHMMSSZ.
    [[nodiscard]] QSslConfiguration issue(const QString& name, const QString& first = {},
                                          const QString& last = {}) const;

  private:
    QTemporaryDir folder_;
};

struct HttpsServerRequest {
    QString path;
    QMap<QByteArray, QByteArray> headers; ///< names in lower case
};

/// A server on this machine over real TLS, which answers as badly as a test wants. Lives on the
/// thread that it was made on, with its event loop.
class HttpsServer final : public QObject {
    Q_OBJECT

  public:
    using Handler = std::function<void(QSslSocket& connection, const HttpsServerRequest& request)>;

    explicit HttpsServer(const QSslConfiguration& certificate);
    ~HttpsServer() override;

    /// A path without a handler is not found.
    void handle(const QString& path, Handler handler);
    [[nodiscard]] QUrl url(const QString& path) const;
    [[nodiscard]] const QList<HttpsServerRequest>& requests() const { return requests_; }

  private:
    void serve(QSslSocket& connection);

    QSslServer server_;
    QMap<QString, Handler> handlers_;
    QList<HttpsServerRequest> requests_;
};

/// Sends a head. Each of the headers is a line without its end; the connection closes after the
/// answer.
void sendHead(QSslSocket& connection, int status, const QList<QByteArray>& headers);
/// A whole answer with its length.
HttpsServer::Handler answering(const QByteArray& body,
                               const QByteArray& type = "application/octet-stream",
                               const QList<QByteArray>& headers = {});
HttpsServer::Handler redirecting(const QByteArray& location, int status = 302);
/// As a proper server: with an entity tag, and with what is asked for by Range. `cutAfter`: no
/// connection brings more bytes of the body than that, then it breaks; -1: all of it.
HttpsServer::Handler servingFile(const QByteArray& body, qint64 cutAfter = -1,
                                 const QByteArray& tag = "\"v1\"");
/// The head, then a piece of the body at every interval for as long as somebody listens.
HttpsServer::Handler dripping(const QList<QByteArray>& headers, const QByteArray& piece,
                              int milliseconds);

} // namespace updates::testing
