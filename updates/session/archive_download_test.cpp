#include "updates/session/archive_download.hpp"
#include "updates/testing/session_testing.hpp"

#include <QElapsedTimer>
#include <QSslSocket>
#include <QTimer>

#include <gmock/gmock.h>

#include <atomic>

namespace updates {
namespace {

using namespace std::chrono_literals;
using testing::answering;
using testing::certificates;
using testing::dripping;
using testing::hastyLimits;
using testing::HttpsServer;
using testing::redirecting;
using testing::runAside;
using testing::sendHead;
using testing::servingFile;

class Downloads : public ::testing::Test {
  protected:
    struct Result {
        std::optional<UpdateFailure> failure;
        QByteArray archive;
        bool isSealed = false;
        std::vector<DownloadProgress> progress;
    };

    Downloads() {
        for (int i = 0; i < 40'000; ++i) {
            body.append(static_cast<char>((i * 7919) >> 5));
        }
    }

    Result download(const QUrl& url, std::uint64_t length) {
        Result result;
        runAside([&] {
            const HttpsClient client(certificates().authority(), {}, limits);
            ArchiveDownload download(client, limits, [&](const DownloadProgress& progress) {
                result.progress.push_back(progress);
            });
            auto got = download.get(url, length, std::chrono::system_clock::now());
            if (const auto* const failure = std::get_if<UpdateFailure>(&got)) {
                result.failure = *failure;
                return;
            }
            auto& archive = std::get<platform::SealedFile>(got);
            result.isSealed = archive.isSealed();
            std::error_code error;
            const auto bytes = archive.map(error);
            result.archive = QByteArray(reinterpret_cast<const char*>(bytes.data()),
                                        static_cast<qsizetype>(bytes.size()));
        });
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
        EXPECT_EQ(static_cast<int>(result.failure->problem), static_cast<int>(problem)) << what;
        EXPECT_TRUE(result.archive.isEmpty()) << what;
        EXPECT_FALSE(result.isSealed) << what;
    }
    EXPECT_EQ(download(server.url("/archive"), (1ULL << 30U) + 1).failure->problem,
              UpdateProblem::archiveTooLarge);
}

TEST_F(Downloads, EndAtOnceWhenNobodyWantsThem) {
    server.handle("/archive", dripping({"Content-Length: 40000"}, "", 1000));
    std::atomic<bool> isWanted = true;
    HttpsClient client(certificates().authority(), {}, UpdateLimits());
    client.isWanted = [&] { return isWanted.load(); };
    bool hasFailed = false;
    QElapsedTimer clock;
    QTimer::singleShot(500, [&] { // by then it waits for bytes
        isWanted = false;
        clock.start();
        client.wake();
    });
    runAside([&] {
        ArchiveDownload download(client, UpdateLimits(), [](const auto&) {});
        hasFailed = std::holds_alternative<UpdateFailure>(
            download.get(server.url("/archive"), size(), std::chrono::system_clock::now()));
    });
    EXPECT_TRUE(hasFailed);
    EXPECT_LT(clock.elapsed(), 500);
    EXPECT_EQ(server.requests().size(), 1);
}

} // namespace
} // namespace updates
