#include "platform/testing/window_testing.hpp"
#include "updates/session/update_engine.hpp"
#include "updates/testing/session_testing.hpp"
#include "updates/testing/test_key.hpp"

#include <QSslSocket>
#include <QTcpServer>
#include <QTimer>

#include <gmock/gmock.h>

namespace updates {
namespace {

using namespace std::chrono_literals;
using enum UpdateProblem;
using testing::answering;
using testing::certificates;
using testing::dripping;
using testing::hastyLimits;
using testing::HttpsServer;
using testing::redirecting;
using testing::runAside;
using testing::sendHead;
using testing::servingFile;

const QByteArray goodFeed = R"(<?xml version="1.0"?>
<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel>
<item><title>2.0</title><sparkle:version>2.0</sparkle:version>
<enclosure url="https://127.0.0.1/a" length="10" type="application/zstd" sparkle:edSignature=")" +
                            QByteArray(64, 'x').toBase64() + R"("/></item>
</channel></rss>)";

QByteArray nested(int depth) {
    QByteArray feed = "<rss><channel>";
    for (int i = 0; i < depth; ++i) {
        feed += "<a>";
    }
    return feed;
}

UpdateHost olderHost() {
    UpdateHost host;
    host.installedVersion = "1.0";
    host.now = std::chrono::system_clock::now();
    return host;
}

/// What vouches for a feed, as a server hands it out.
HttpsServer::Handler vouchingFor(const QByteArray& feed) {
    return answering(QByteArray::fromStdString(testing::testStatement(feed.toStdString())));
}

/// What a check says, in a word that a table can hold.
struct Word : std::string {
    Word(const char* text) : std::string(text) {}
    Word(UpdateProblem problem)
        : std::string("problem " + std::to_string(static_cast<int>(problem))) {}
};

Word wordOf(const CheckOutcome& outcome) {
    if (const auto* const item = std::get_if<AppcastItem>(&outcome.answer)) {
        return ("offer " + item->version).c_str();
    }
    if (const auto* const failure = std::get_if<UpdateFailure>(&outcome.answer)) {
        return failure->problem;
    }
    return std::holds_alternative<UpToDate>(outcome.answer) ? "up to date" : "nothing suitable";
}

/// Writes a piece over and over for as long as somebody listens.
void keepWriting(QTcpSocket& connection, const QByteArray& piece) {
    auto* const timer = new QTimer(&connection);
    QObject::connect(timer, &QTimer::timeout, &connection, [&connection, piece] {
        if (connection.bytesToWrite() < 1 << 20) {
            connection.write(piece);
        }
    });
    timer->start(0);
}

class Checks : public ::testing::Test {
  protected:
    CheckOutcome check(const QUrl& feed, UpdateHost host = olderHost()) {
        UpdateIdentity identity;
        identity.feed = feed;
        identity.publicKey = publicKey;
        identity.trustAnchors = trustAnchors;
        identity.builtAt = builtAt;
        UpdateEngine engine(identity, limits, [] { return Installation(); });
        std::vector<EngineEvent> events;
        QObject::connect(&engine, &UpdateEngine::happened,
                         [&](quint64, const EngineEvent& event) { events.push_back(event); });
        engine.want(1);
        runAside([&] { engine.check(1, host, Asking::user); });
        EXPECT_EQ(events.size(), 1U);
        return events.empty() ? CheckOutcome{} : std::get<CheckOutcome>(events.front());
    }

    std::string publicKey = testing::publicTestKey;
    UpdateLimits limits = hastyLimits();
    QByteArray trustAnchors = certificates().authority();
    std::chrono::system_clock::time_point builtAt{};
    HttpsServer server{certificates().issue("good")};
};

TEST_F(Checks, EndInAnAnswerWhateverTheServerDoes) {
    const QByteArray portal = "<!DOCTYPE html><html><body>Please sign in</body></html>";
    const QByteArray bomb = "<?xml version=\"1.0\"?><!DOCTYPE x [<!ENTITY a \"aaaaaaaa\">"
                            "<!ENTITY b \"&a;&a;&a;&a;&a;&a;\">]><rss><channel>&b;</channel></rss>";
    const auto silence = [](QSslSocket&, const auto&) {};
    const auto hangUp = [](QSslSocket& connection, const auto&) { connection.abort(); };
    const auto status = [](int code) {
        return [code](QSslSocket& connection, const auto&) {
            sendHead(connection, code, {"Content-Length: 2"});
            connection.write("no");
            connection.disconnectFromHost();
        };
    };
    const auto endless = [](QByteArray piece) {
        return [piece](QSslSocket& connection, const auto&) {
            connection.write("HTTP/1.1 200 OK\r\nX: ");
            keepWriting(connection, piece.repeated(1000));
        };
    };
    const struct {
        const char* what;
        HttpsServer::Handler handler;
        Word outcome;
        QByteArray vouchedFor = goodFeed;
    } cases[] = {
        {"a feed", answering(goodFeed, "application/rss+xml"), "offer 2.0"},
        {"a feed by a strange name", answering(goodFeed, "text/plain"), "offer 2.0"},
        {"no channel item", answering("<rss><channel/></rss>", "text/xml"), "nothing suitable",
         "<rss><channel/></rss>"},
        {"a portal", answering(portal, "text/html"), signInFirst},
        {"a portal in disguise", answering(portal, "application/rss+xml"), signInFirst},
        {"the portal's status", status(511), signInFirst},
        {"an entity bomb", answering(bomb), feedForbidden, bomb},
        {"deep nesting", answering(nested(100'000)), feedForbidden, nested(100'000)},
        {"an entity bomb that nobody vouches for", answering(bomb), feedNotSigned},
        {"half a feed", answering(goodFeed.left(200)), feedNotSigned},
        {"half a feed that is signed", answering(goodFeed.left(200)), feedUnreadable,
         goodFeed.left(200)},
        {"nothing", answering(""), feedNotSigned},
        {"more than a mebibyte", answering(goodFeed + QByteArray(1 << 20, ' ')), feedTooLarge},
        {"endless feed", dripping({}, QByteArray(32 << 10, ' '), 1), feedTooLarge},
        {"a slow drip", dripping({"Content-Length: 1000"}, "x", 150), tooSlow},
        {"a stall after the head", dripping({"Content-Length: 1000"}, "", 1000), tooSlow},
        {"silence", silence, tooSlow},
        {"hanging up", hangUp, noAnswer},
        {"less than announced", servingFile(goodFeed, goodFeed.size() / 2), connectionLost},
        {"404", status(404), notOnServer},
        {"410", status(410), notOnServer},
        {"503", status(503), serverError},
        {"401", status(401), serverError},
        {"206 unasked", status(206), serverError},
        {"a redirect to nowhere", status(302), serverError},
        {"a redirect to http", redirecting("http://127.0.0.1/feed"), insecureAddress},
        {"a redirect to a file", redirecting("file:///etc/hostname"), insecureAddress},
        {"a redirect into the program", redirecting("data:text/xml,<rss/>"), insecureAddress},
        {"a redirect to itself", redirecting("/feed"), tooManyRedirects},
        {"a redirect to a feed", redirecting("/other", 308), "offer 2.0"},
        {"headers without an end", endless("X: 12345678901234567890\r\n"), feedTooLarge},
        {"a header without an end", endless("12345678901234567890"), feedTooLarge},
    };
    server.handle("/other", answering(goodFeed));
    for (const auto& [what, handler, outcome, vouchedFor] : cases) {
        server.handle("/feed", handler);
        server.handle("/feed.sig", vouchingFor(vouchedFor));
        EXPECT_EQ(wordOf(check(server.url("/feed"))), outcome) << what;
    }
}

TEST_F(Checks, BelieveOnlyWhatTheMakerVouchesFor) {
    const auto statement = [](std::uint64_t serial) {
        return answering(
            QByteArray::fromStdString(testing::testStatement(goodFeed.toStdString(), serial)));
    };
    const Word notSigned = feedNotSigned;
    const auto gone = [](QSslSocket& connection, const auto&) {
        sendHead(connection, 404, {"Content-Length: 0"});
        connection.disconnectFromHost();
    };
    // A feed that is replaced between the two requests.
    const auto replaced = [&, count = 0](QSslSocket& connection, const auto& request) mutable {
        (count++ == 0 ? vouchingFor("<rss/>") : statement(42))(connection, request);
    };
    constexpr auto years = 24h * 366;
    const auto now = std::chrono::system_clock::now();
    const struct {
        const char* what;
        HttpsServer::Handler statement;
        Word outcome;
        std::chrono::system_clock::time_point clock;
        std::chrono::system_clock::time_point built = {};
        std::uint64_t lastSerial = 41;
    } cases[] = {
        {"the next one", statement(42), "offer 2.0", now},
        {"the last one again", statement(41), "offer 2.0", now},
        {"an older one", statement(40), feedSuperseded, now},
        {"an expired one", statement(42), feedExpired, now + 21 * years},
        {"one that had expired before the program was built", statement(42), feedExpired, now,
         now + 21 * years},
        {"no statement", gone, notSigned, now},
        {"another feed's", vouchingFor("<rss/>"), notSigned, now},
        {"another feed's at first", replaced, "offer 2.0", now},
        {"a long one", answering(QByteArray(10'000, 'x')), notSigned, now},
        {"an endless one", dripping({}, QByteArray(4096, ' '), 1), notSigned, now},
        {"one over no connection", redirecting("http://127.0.0.1/feed.sig"), insecureAddress, now},
    };
    server.handle("/feed", answering(goodFeed));
    for (const auto& [what, handler, outcome, clock, built, lastSerial] : cases) {
        server.handle("/feed.sig", handler);
        builtAt = built;
        UpdateHost host = olderHost();
        host.feedSerial = lastSerial;
        host.now = clock;
        const CheckOutcome said = check(server.url("/feed"), host);
        EXPECT_EQ(wordOf(said), outcome) << what;
        EXPECT_EQ(said.feedSerial > 0, outcome == Word("offer 2.0")) << what;
    }
    publicKey.clear();
    const auto asked = server.requests().size();
    EXPECT_EQ(wordOf(check(server.url("/feed"))), Word(noKey));
    EXPECT_EQ(server.requests().size(), asked);
}

TEST_F(Checks, FollowFiveRedirectsAndNotASixth) {
    for (int i = 1; i <= 6; ++i) {
        server.handle(QString("/%1").arg(i), redirecting('/' + QByteArray::number(i - 1)));
    }
    server.handle("/0", answering(goodFeed));
    server.handle("/5.sig", vouchingFor(goodFeed));
    EXPECT_EQ(wordOf(check(server.url("/5"))), "offer 2.0");
    const auto asked = server.requests().size();
    EXPECT_EQ(wordOf(check(server.url("/6"))), Word(tooManyRedirects));
    EXPECT_EQ(server.requests().size() - asked, 6); // the seventh was not asked
    QUrl plain = server.url("/0");
    plain.setScheme("http");
    EXPECT_EQ(wordOf(check(plain)), Word(insecureAddress));
    EXPECT_EQ(wordOf(check(QUrl("file:///etc/hostname"))), Word(insecureAddress));
}

TEST_F(Checks, TrustOnlyTheRightServerAtTheRightTime) {
    const auto now = std::chrono::system_clock::now();
    const auto date = [&](auto distance) {
        return QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(now + distance))
            .toUTC()
            .toString("yyyyMMddHHmmss'Z'");
    };
    constexpr auto year = 365 * 24h;
    const struct {
        const char* what;
        QString first;
        QString last;
        std::chrono::system_clock::time_point built;
        UpdateProblem problem;
    } cases[] = {
        // A clock ten years off: to the client the server's dates are that far away.
        {"clock behind", date(9 * year), date(10 * year), now, clockLooksWrong},
        {"clock ahead", date(-10 * year), date(-9 * year), now, clockLooksWrong},
        {"before the program was built", date(-2 * year), date(-24h), now + 48h, clockLooksWrong},
        {"expired yesterday", date(-year), date(-24h), now - 10 * 24h, certificateExpired},
    };
    for (const auto& [what, first, last, built, problem] : cases) {
        HttpsServer dated{certificates().issue("dated", first, last)};
        dated.handle("/feed", answering(goodFeed));
        builtAt = built;
        const CheckOutcome outcome = check(dated.url("/feed"));
        EXPECT_EQ(wordOf(outcome), Word(problem)) << what;
        EXPECT_TRUE(dated.requests().isEmpty()) << what;
    }
    builtAt = {};

    server.handle("/feed", answering(goodFeed));
    trustAnchors = testing::CertificateFolder().authority(); // somebody else's
    EXPECT_EQ(wordOf(check(server.url("/feed"))), Word(certificateUntrusted));
    trustAnchors = {}; // the system's
    EXPECT_EQ(wordOf(check(server.url("/feed"))), Word(certificateUntrusted));
    trustAnchors = certificates().authority();
    QUrl otherName = server.url("/feed");
    otherName.setHost("other.localhost"); // this machine, and not in the certificate
    EXPECT_EQ(wordOf(check(otherName)), Word(certificateUntrusted));
    EXPECT_EQ(wordOf(check(QUrl("https://nobody.invalid/feed"))), Word(offline));
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(Checks, TellNobodyWhoAsks) {
    QUrl named = server.url("/other");
    named.setUserInfo("somebody:secret");
    server.handle("/feed", redirecting(named.toEncoded()));
    server.handle("/feed.sig", vouchingFor(goodFeed));
    server.handle("/other", answering(goodFeed));
    EXPECT_EQ(wordOf(check(server.url("/feed"))), "offer 2.0");
    for (const auto& request : server.requests()) {
        EXPECT_EQ(request.headers.keys().join(' ').toStdString(),
                  "accept accept-encoding accept-language cache-control host user-agent");
        EXPECT_EQ(request.headers["accept-language"], "*");
    }
}

TEST_F(Checks, WaitForAnAnswerNoLongerThanTheyShould) {
    server.handle("/feed", [](QSslSocket&, const auto&) {});
    limits.answerTime = 300ms;
    limits.documentTime = 60s;
    EXPECT_EQ(wordOf(check(server.url("/feed"))), Word(noAnswer));
}

TEST_F(Checks, EndInAnAnswerWhateverAProxyDoes) {
    const struct {
        const char* what;
        const char* answer;
        const char* more; // without an end
        UpdateProblem problem;
    } cases[] = {
        {"refuses", "HTTP/1.1 407 No\r\nContent-Length: 0\r\n\r\n", "", proxyRefused},
        {"headers without an end", "HTTP/1.1 200 OK\r\n", "X: 1234567890\r\n", proxyRefused},
        {"a header without an end", "HTTP/1.1 200 OK\r\nX: ", "1234567890", noAnswer},
        {"a refusal without an end", "HTTP/1.1 403 No\r\n\r\n", "1234567890", proxyRefused},
        {"listens in", "HTTP/1.1 200 OK\r\n\r\n", "1234567890", certificateUntrusted},
    };
    QTcpServer proxy;
    ASSERT_TRUE(proxy.listen(QHostAddress::LocalHost));
    qputenv("https_proxy", "http://127.0.0.1:" + QByteArray::number(proxy.serverPort()));
    for (const auto& [what, answer, more, problem] : cases) {
        QObject::connect(&proxy, &QTcpServer::newConnection, [&proxy, answer, more] {
            auto* const connection = proxy.nextPendingConnection();
            QObject::connect(connection, &QTcpSocket::disconnected, connection,
                             &QObject::deleteLater);
            connection->write(answer);
            keepWriting(*connection, QByteArray(more).repeated(1000));
        });
        EXPECT_EQ(wordOf(check(QUrl("https://updates.invalid/feed"))), Word(problem)) << what;
        proxy.disconnect();
    }
    qunsetenv("https_proxy");
    EXPECT_TRUE(server.requests().isEmpty());
}

} // namespace
} // namespace updates
