#include "platform/testing/window_testing.hpp"
#include "platform/updates/session/update_engine.hpp"
#include "platform/updates/testing/https_server.hpp"

#include <QSslSocket>
#include <QTimer>

#include <gmock/gmock.h>

namespace platform {
namespace {

using namespace std::chrono_literals;
using testing::answering;
using testing::dripping;
using testing::HttpsServer;
using testing::redirecting;
using testing::runUntil;
using testing::sendHead;
using testing::servingFile;

const testing::CertificateFolder& certificates() {
    static const testing::CertificateFolder folder;
    return folder;
}

/// The product's bounds with shorter times.
UpdateLimits hastyLimits() {
    UpdateLimits limits;
    limits.answerTime = 2500ms;
    limits.stallTime = 600ms;
    limits.documentTime = 1500ms;
    limits.downloadTime = 4000ms;
    limits.leastBytesPerSecond = 40'000;
    limits.resumptionPause = 5ms;
    return limits;
}

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

/// What a check says, in a word that a table can hold.
std::string wordOf(const CheckOutcome& outcome) {
    if (const auto* const item = std::get_if<AppcastItem>(&outcome.answer)) {
        return "offer " + item->version;
    }
    if (const auto* const failure = std::get_if<UpdateFailure>(&outcome.answer)) {
        return "problem " + std::to_string(static_cast<int>(failure->problem));
    }
    return std::holds_alternative<UpToDate>(outcome.answer) ? "up to date" : "nothing suitable";
}

std::string wordOf(UpdateProblem problem) {
    return wordOf(CheckOutcome{UpdateFailure{problem, {}}, {}});
}

class Checks : public ::testing::Test {
  protected:
    CheckOutcome check(const QUrl& feed, UpdateHost host = olderHost()) {
        UpdateIdentity identity;
        identity.feed = feed;
        identity.trustAnchors = trustAnchors;
        identity.builtAt = builtAt;
        UpdateEngine engine(identity, hastyLimits(), [] { return Installation(); });
        std::vector<EngineEvent> events;
        QObject::connect(&engine, &UpdateEngine::happened,
                         [&](quint64, const EngineEvent& event) { events.push_back(event); });
        engine.check(1, host, Asking::user);
        EXPECT_TRUE(runUntil([&] { return !events.empty(); }, 15'000));
        testing::runFor(20);
        EXPECT_EQ(events.size(), 1U);
        return events.empty() ? CheckOutcome{} : std::get<CheckOutcome>(events.front());
    }

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
    const struct {
        const char* what;
        HttpsServer::Handler handler;
        std::string outcome;
    } cases[] = {
        {"a feed", answering(goodFeed, "application/rss+xml"), "offer 2.0"},
        {"a feed by a strange name", answering(goodFeed, "text/plain"), "offer 2.0"},
        {"no channel item", answering("<rss><channel/></rss>", "text/xml"), "nothing suitable"},
        {"a portal", answering(portal, "text/html"), wordOf(UpdateProblem::signInFirst)},
        {"a portal in disguise", answering(portal, "application/rss+xml"),
         wordOf(UpdateProblem::signInFirst)},
        {"the portal's status", status(511), wordOf(UpdateProblem::signInFirst)},
        {"an entity bomb", answering(bomb), wordOf(UpdateProblem::feedForbidden)},
        {"deep nesting", answering(nested(100'000)), wordOf(UpdateProblem::feedForbidden)},
        {"half a feed", answering(goodFeed.left(200)), wordOf(UpdateProblem::feedUnreadable)},
        {"nothing", answering(""), wordOf(UpdateProblem::feedUnreadable)},
        {"more than a mebibyte", answering(goodFeed + QByteArray(1 << 20, ' ')),
         wordOf(UpdateProblem::feedTooLarge)},
        {"endless feed", dripping({}, QByteArray(32 << 10, ' '), 1),
         wordOf(UpdateProblem::feedTooLarge)},
        {"a slow drip", dripping({"Content-Length: 1000"}, "x", 150),
         wordOf(UpdateProblem::tooSlow)},
        {"a stall after the head", dripping({"Content-Length: 1000"}, "", 1000),
         wordOf(UpdateProblem::tooSlow)},
        {"silence", silence, wordOf(UpdateProblem::tooSlow)},
        {"hanging up", hangUp, wordOf(UpdateProblem::noAnswer)},
        {"less than announced", servingFile(goodFeed, goodFeed.size() / 2),
         wordOf(UpdateProblem::connectionLost)},
        {"404", status(404), wordOf(UpdateProblem::notOnServer)},
        {"410", status(410), wordOf(UpdateProblem::notOnServer)},
        {"503", status(503), wordOf(UpdateProblem::serverError)},
        {"401", status(401), wordOf(UpdateProblem::serverError)},
        {"206 unasked", status(206), wordOf(UpdateProblem::serverError)},
        {"a redirect to nowhere", status(302), wordOf(UpdateProblem::serverError)},
        {"a redirect to http", redirecting("http://127.0.0.1/feed"),
         wordOf(UpdateProblem::insecureAddress)},
        {"a redirect to a file", redirecting("file:///etc/hostname"),
         wordOf(UpdateProblem::insecureAddress)},
        {"a redirect into the program", redirecting("data:text/xml,<rss/>"),
         wordOf(UpdateProblem::insecureAddress)},
        {"a redirect to itself", redirecting("/feed"), wordOf(UpdateProblem::tooManyRedirects)},
        {"a redirect to a feed", redirecting("/other", 308), "offer 2.0"},
    };
    server.handle("/other", answering(goodFeed));
    for (const auto& [what, handler, outcome] : cases) {
        server.handle("/feed", handler);
        EXPECT_EQ(wordOf(check(server.url("/feed"))), outcome) << what;
    }
}

TEST_F(Checks, FollowFiveRedirectsAndNotASixth) {
    for (int i = 1; i <= 6; ++i) {
        server.handle(QString("/%1").arg(i), redirecting('/' + QByteArray::number(i - 1)));
    }
    server.handle("/0", answering(goodFeed));
    EXPECT_EQ(wordOf(check(server.url("/5"))), "offer 2.0");
    const auto asked = server.requests().size();
    EXPECT_EQ(wordOf(check(server.url("/6"))), wordOf(UpdateProblem::tooManyRedirects));
    EXPECT_EQ(server.requests().size() - asked, 6); // the seventh was not asked
    QUrl plain = server.url("/0");
    plain.setScheme("http");
    EXPECT_EQ(wordOf(check(plain)), wordOf(UpdateProblem::insecureAddress));
    EXPECT_EQ(wordOf(check(QUrl("file:///etc/hostname"))), wordOf(UpdateProblem::insecureAddress));
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
        {"clock behind", date(9 * year), date(10 * year), now, UpdateProblem::clockLooksWrong},
        {"clock ahead", date(-10 * year), date(-9 * year), now, UpdateProblem::clockLooksWrong},
        {"before the program was built", date(-2 * year), date(-24h), now + 48h,
         UpdateProblem::clockLooksWrong},
        {"expired yesterday", date(-year), date(-24h), now - 10 * 24h,
         UpdateProblem::certificateExpired},
    };
    for (const auto& [what, first, last, built, problem] : cases) {
        HttpsServer dated{certificates().issue("dated", first, last)};
        dated.handle("/feed", answering(goodFeed));
        builtAt = built;
        const CheckOutcome outcome = check(dated.url("/feed"));
        EXPECT_EQ(wordOf(outcome), wordOf(problem)) << what;
        EXPECT_TRUE(dated.requests().isEmpty()) << what;
    }
    builtAt = {};

    server.handle("/feed", answering(goodFeed));
    trustAnchors = testing::CertificateFolder().authority(); // somebody else's
    EXPECT_EQ(wordOf(check(server.url("/feed"))), wordOf(UpdateProblem::certificateUntrusted));
    trustAnchors = {}; // the system's
    EXPECT_EQ(wordOf(check(server.url("/feed"))), wordOf(UpdateProblem::certificateUntrusted));
    trustAnchors = certificates().authority();
    QUrl otherName = server.url("/feed");
    otherName.setHost("127.0.0.2"); // not in the certificate; nobody listens there either
    EXPECT_EQ(wordOf(check(otherName)), wordOf(UpdateProblem::noAnswer));
    EXPECT_EQ(wordOf(check(QUrl("https://nobody.invalid/feed"))), wordOf(UpdateProblem::offline));
    EXPECT_TRUE(server.requests().isEmpty());
}

class Downloads : public ::testing::Test {
  protected:
    struct Result {
        std::optional<UpdateFailure> failure;
        QByteArray archive;
        bool isSealed = false;
        std::vector<DownloadProgress> progress;
    };

    Downloads() {
        client_.network = &network_;
        client_.now = std::chrono::system_clock::now();
        client_.trustAnchors = QSslCertificate::fromData(certificates().authority());
        for (int i = 0; i < 40'000; ++i) {
            body.append(static_cast<char>((i * 7919) >> 5));
        }
    }

    Result download(const QUrl& url, std::uint64_t length) {
        ArchiveDownload download(client_, limits);
        Result result;
        bool isFinished = false;
        QObject::connect(&download, &ArchiveDownload::progressed,
                         [&](const auto& progress) { result.progress.push_back(progress); });
        QObject::connect(&download, &ArchiveDownload::finished, [&](const auto& failure) {
            result.failure = failure;
            isFinished = true;
        });
        download.start(url, length);
        EXPECT_TRUE(runUntil([&] { return isFinished; }, 30'000));
        SealedFile archive = download.takeArchive();
        result.isSealed = archive.isSealed();
        std::error_code error;
        const auto bytes = archive.map(error);
        result.archive = QByteArray(reinterpret_cast<const char*>(bytes.data()),
                                    static_cast<qsizetype>(bytes.size()));
        for (const auto& progress : result.progress) {
            EXPECT_LE(progress.received, length);
            EXPECT_EQ(progress.length, length);
        }
        return result;
    }

    std::uint64_t size() const { return static_cast<std::uint64_t>(body.size()); }

    QByteArray body;
    UpdateLimits limits = hastyLimits();
    HttpsServer server{certificates().issue("good")};

  private:
    QNetworkAccessManager network_;
    HttpsClient client_;
};

TEST_F(Downloads, GoOnWhereTheyWereCut) {
    // At every tenth, at once, and at odd places.
    for (const qint64 piece : {4000, 39'999, 1, 12'345}) {
        limits.resumptions = piece == 1 ? 5 : 100;
        server.handle("/archive", servingFile(body, piece));
        const auto before = server.requests().size();
        const Result result = download(server.url("/archive"), size());
        if (piece == 1) { // it would, but not for ever
            EXPECT_EQ(result.failure, (UpdateFailure{UpdateProblem::connectionLost, {}}));
            EXPECT_EQ(server.requests().size() - before, 6);
            continue;
        }
        EXPECT_EQ(result.failure, std::nullopt) << piece;
        EXPECT_EQ(result.archive, body) << piece;
        EXPECT_TRUE(result.isSealed);
        const auto requests = server.requests().mid(before);
        EXPECT_EQ(requests.size(), (body.size() + piece - 1) / piece);
        EXPECT_FALSE(requests[0].headers.contains("range"));
        EXPECT_EQ(requests[1].headers["range"], "bytes=" + QByteArray::number(piece) + '-');
        EXPECT_EQ(result.progress.back().received, size());
    }
}

TEST_F(Downloads, BeginAnewWhereTheyCannotGoOn) {
    int times = 0;
    const QByteArray other(body.size(), 'o');
    const auto cutOnce = [&](const HttpsServer::Handler& first, const HttpsServer::Handler& then) {
        times = 0;
        server.handle("/archive", [&times, first, then](auto& connection, const auto& request) {
            (times++ == 0 ? first : then)(connection, request);
        });
    };
    // Another archive by now: what is there of the old one is thrown away.
    cutOnce(servingFile(body, 10'000, "\"v1\""), servingFile(other, -1, "\"v2\""));
    EXPECT_EQ(download(server.url("/archive"), size()).archive, other);
    EXPECT_EQ(times, 2);
    // A server that names no version of what it sends, and one that knows no parts.
    cutOnce(servingFile(body, 10'000, "W/\"weak\""), servingFile(body, -1, "W/\"weak\""));
    EXPECT_EQ(download(server.url("/archive"), size()).archive, body);
    cutOnce(servingFile(body, 10'000), answering(body));
    EXPECT_EQ(download(server.url("/archive"), size()).archive, body);
    // One that goes on at the wrong place is not believed.
    const auto wrongPart = [&](QSslSocket& connection, const auto&) {
        sendHead(
            connection, 206,
            {"Content-Range: bytes 5000-39999/40000", "Content-Length: 35000", "ETag: \"v1\""});
        connection.write(body.mid(5000));
        connection.disconnectFromHost();
    };
    cutOnce(servingFile(body, 10'000), wrongPart);
    EXPECT_EQ(download(server.url("/archive"), size()).failure->problem,
              UpdateProblem::serverError);
}

TEST_F(Downloads, AreBoundedAndKeepNothing) {
    const QByteArray length = "Content-Length: " + QByteArray::number(body.size());
    const struct {
        const char* what;
        HttpsServer::Handler handler;
        UpdateProblem problem;
    } cases[] = {
        {"longer", answering(body + "x"), UpdateProblem::wrongLength},
        {"shorter", answering(body.chopped(1)), UpdateProblem::wrongLength},
        {"empty", answering(""), UpdateProblem::wrongLength},
        {"endless", dripping({}, body, 1), UpdateProblem::wrongLength},
        {"shorter without saying so",
         [&](QSslSocket& connection, const auto&) {
             sendHead(connection, 200, {});
             connection.write(body.chopped(1));
             connection.disconnectFromHost();
         },
         UpdateProblem::connectionLost},
        {"a slow drip", dripping({length}, "x", 150), UpdateProblem::tooSlow},
        {"a stall", dripping({length}, "", 1000), UpdateProblem::tooSlow},
        {"a portal", answering(body, "text/html; charset=utf-8"), UpdateProblem::signInFirst},
        {"gone", {}, UpdateProblem::notOnServer},
        {"to http", redirecting("http://127.0.0.1/archive"), UpdateProblem::insecureAddress},
        {"compressed on the way",
         answering(body.chopped(100), "application/zstd", {"Content-Encoding: gzip"}),
         UpdateProblem::wrongLength},
        {"always cut at the start", servingFile(body, 0), UpdateProblem::connectionLost},
    };
    for (const auto& [what, handler, problem] : cases) {
        if (handler) {
            server.handle("/archive", handler);
        }
        const Result result = download(server.url(handler ? "/archive" : "/gone"), size());
        ASSERT_TRUE(result.failure.has_value()) << what;
        EXPECT_EQ(wordOf(result.failure->problem), wordOf(problem)) << what;
        EXPECT_TRUE(result.archive.isEmpty()) << what;
        EXPECT_FALSE(result.isSealed) << what;
    }
    EXPECT_EQ(download(server.url("/archive"), (1ULL << 30U) + 1).failure->problem,
              UpdateProblem::archiveTooLarge);
}

TEST_F(Downloads, EndWithTheirOwner) {
    server.handle("/archive", dripping({"Content-Length: 40000"}, "xxxx", 1));
    HttpsClient client;
    QNetworkAccessManager network;
    client.network = &network;
    client.trustAnchors = QSslCertificate::fromData(certificates().authority());
    bool hasStarted = false;
    {
        ArchiveDownload download(client, limits);
        QObject::connect(&download, &ArchiveDownload::progressed, [&] { hasStarted = true; });
        QObject::connect(&download, &ArchiveDownload::finished, [] { FAIL() << "not a word"; });
        download.start(server.url("/archive"), size());
        ASSERT_TRUE(runUntil([&] { return hasStarted; }));
    }
    testing::runFor(200);
    EXPECT_EQ(server.requests().size(), 1);
}

} // namespace
} // namespace platform
