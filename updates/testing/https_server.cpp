#include "updates/testing/https_server.hpp"

#include <QFile>
#include <QProcess>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslSocket>
#include <QTimer>

#include <gmock/gmock.h>

namespace updates::testing {
namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

/// Ends a connection as a broken line does: what was written goes out, then TLS gets no farewell.
void breakOff(QSslSocket& connection) {
    auto* const timer = new QTimer(&connection);
    QObject::connect(timer, &QTimer::timeout, &connection, [&connection] {
        if (connection.bytesToWrite() + connection.encryptedBytesToWrite() == 0) {
            connection.abort();
        }
    });
    timer->start(5);
}

} // namespace

CertificateFolder::CertificateFolder() {
    static_cast<void>(issue(QStringLiteral("first")));
}

QByteArray CertificateFolder::authority() const {
    return contentOf(folder_.filePath(QStringLiteral("authority.pem")));
}

QSslConfiguration CertificateFolder::issue(const QString& name, const QString& first,
                                           const QString& last) const {
    QProcess process;
    process.start(QStringLiteral(MAKE_CERTIFICATE),
                  {folder_.path(), name, QStringLiteral("127.0.0.1"), first, last});
    EXPECT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(process.exitCode(), 0) << contentOf(folder_.filePath(QStringLiteral("log"))).data();
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(
        QSslCertificate(contentOf(folder_.filePath(name + QStringLiteral(".pem")))));
    configuration.setPrivateKey(
        QSslKey(contentOf(folder_.filePath(name + QStringLiteral(".key"))), QSsl::Ec));
    return configuration;
}

HttpsServer::HttpsServer(const QSslConfiguration& certificate) {
    server_.setSslConfiguration(certificate);
    EXPECT_TRUE(server_.listen(QHostAddress::LocalHost));
    connect(&server_, &QTcpServer::pendingConnectionAvailable, this, [this] {
        while (auto* const connection = static_cast<QSslSocket*>(server_.nextPendingConnection())) {
            connect(connection, &QSslSocket::disconnected, connection, &QObject::deleteLater);
            connect(connection, &QSslSocket::readyRead, this,
                    [this, connection] { serve(*connection); });
            serve(*connection);
        }
    });
}

HttpsServer::~HttpsServer() = default;

void HttpsServer::handle(const QString& path, Handler handler) {
    handlers_[path] = std::move(handler);
}

QUrl HttpsServer::url(const QString& path) const {
    return QUrl(QStringLiteral("https://127.0.0.1:%1%2").arg(server_.serverPort()).arg(path));
}

void HttpsServer::serve(QSslSocket& connection) {
    const QByteArray seen = connection.peek(64 << 10);
    const qsizetype end = seen.indexOf("\r\n\r\n");
    if (end < 0) {
        return;
    }
    connection.read(end + 4);
    const QList<QByteArray> lines = seen.left(end).split('\n');
    HttpsServerRequest request;
    request.path = QString::fromLatin1(lines.first().split(' ').value(1));
    for (const QByteArray& line : lines.mid(1)) {
        const qsizetype colon = line.indexOf(':');
        request.headers[line.left(colon).trimmed().toLower()] = line.mid(colon + 1).trimmed();
    }
    requests_.append(request);
    if (const auto found = handlers_.constFind(request.path); found != handlers_.constEnd()) {
        (*found)(connection, request);
    } else {
        sendHead(connection, 404, {"Content-Length: 0"});
        connection.disconnectFromHost();
    }
}

void sendHead(QSslSocket& connection, int status, const QList<QByteArray>& headers) {
    QByteArray head =
        "HTTP/1.1 " + QByteArray::number(status) + " Whatever\r\nConnection: close\r\n";
    for (const QByteArray& header : headers) {
        head += header + "\r\n";
    }
    connection.write(head + "\r\n");
}

HttpsServer::Handler answering(const QByteArray& body, const QByteArray& type,
                               const QList<QByteArray>& headers) {
    return [=](QSslSocket& connection, const HttpsServerRequest&) {
        sendHead(connection, 200,
                 headers + QList<QByteArray>{"Content-Type: " + type,
                                             "Content-Length: " + QByteArray::number(body.size())});
        connection.write(body);
        connection.disconnectFromHost();
    };
}

HttpsServer::Handler redirecting(const QByteArray& location, int status) {
    return [=](QSslSocket& connection, const HttpsServerRequest&) {
        sendHead(connection, status, {"Location: " + location, "Content-Length: 0"});
        connection.disconnectFromHost();
    };
}

HttpsServer::Handler servingFile(const QByteArray& body, qint64 cutAfter, const QByteArray& tag) {
    return [=](QSslSocket& connection, const HttpsServerRequest& request) {
        qint64 first = 0;
        const QByteArray range = request.headers.value("range");
        const bool goesOn = range.startsWith("bytes=") && request.headers.value("if-range") == tag;
        if (goesOn) {
            first = range.mid(6, range.indexOf('-') - 6).toLongLong();
        }
        const QByteArray whole = QByteArray::number(body.size());
        if (first >= body.size()) {
            sendHead(connection, 416, {"Content-Range: bytes */" + whole, "Content-Length: 0"});
            connection.disconnectFromHost();
            return;
        }
        const QByteArray part = body.mid(first);
        QList<QByteArray> headers{"ETag: " + tag,
                                  "Content-Length: " + QByteArray::number(part.size())};
        if (goesOn) {
            headers.append("Content-Range: bytes " + QByteArray::number(first) + '-' +
                           QByteArray::number(body.size() - 1) + '/' + whole);
        }
        sendHead(connection, goesOn ? 206 : 200, headers);
        if (cutAfter < 0 || part.size() <= cutAfter) {
            connection.write(part);
            connection.disconnectFromHost();
        } else {
            connection.write(part.left(cutAfter));
            breakOff(connection);
        }
    };
}

HttpsServer::Handler dripping(const QList<QByteArray>& headers, const QByteArray& piece,
                              int milliseconds) {
    return [=](QSslSocket& connection, const HttpsServerRequest&) {
        sendHead(connection, 200, headers);
        auto* const timer = new QTimer(&connection);
        QObject::connect(timer, &QTimer::timeout, &connection, [&connection, piece] {
            if (connection.bytesToWrite() + connection.encryptedBytesToWrite() < 1 << 20) {
                connection.write(piece);
            }
        });
        timer->start(milliseconds);
    };
}

} // namespace updates::testing
