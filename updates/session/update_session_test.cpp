#include "updates/install/installation_record.hpp"
#include "updates/testing/session_fixture.hpp"

#include <thread>

namespace updates {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using platform::testing::runUntil;
using testing::answering;
using testing::Session;

TEST_F(Session, InstallsWhatTheMakerSignedAndRelaunches) {
    publish({.more = "<sparkle:releaseNotesLink>" + server.url("/notes").toString().toStdString() +
                     "</sparkle:releaseNotesLink>"});
    start();
    session->checkForUpdates();
    ASSERT_TRUE(comes<scene::Offer>());
    EXPECT_TRUE(shown<scene::Offer>().isLoadingNotes);
    ASSERT_TRUE(runUntil([&] { return !shown<scene::Offer>().isLoadingNotes; }));
    EXPECT_EQ(shown<scene::Offer>().notes, "<h1>New</h1>");
    EXPECT_EQ(shown<scene::Offer>().version, "1.1.0");
    EXPECT_EQ(askedFor("/archive"), 0); // nothing before the user wants it
    session->relaunch();                // not yet
    session->install();
    ASSERT_TRUE(comes<scene::Ready>());
    EXPECT_EQ(copy.current(), "versions/1.0.0");
    session->checkForUpdates(); // is not a second update
    EXPECT_TRUE(std::holds_alternative<scene::Ready>(session->scene()));
    session->relaunch();
    session->dismiss(); // too late
    ASSERT_TRUE(runUntil([&] { return hasQuit; }, 20'000));
    EXPECT_EQ(copy.current(), "versions/1.1.0");
    EXPECT_EQ(started,
              (std::vector<std::string>{copy.launcher().string(), "--one", "two \xff words"}));
    const auto run = testing::runProgram({copy.launcher().string(), "--one", "two words"});
    EXPECT_EQ(run.output, "1.1.0 [--one] [two words]\n");
    // Each step was shown once it began.
    std::vector<std::size_t> order;
    for (const UpdateScene& scene : scenes) {
        if (order.empty() || order.back() != scene.index()) {
            order.push_back(scene.index());
        }
    }
    const auto place = [](const UpdateScene& scene) { return scene.index(); };
    EXPECT_EQ(order,
              (std::vector<std::size_t>{place(scene::Checking{}), place(scene::Offer{}),
                                        place(scene::Downloading{}), place(scene::Unpacking{}),
                                        place(scene::Ready{}), place(scene::Installing{}),
                                        place(scene::Nothing{})}));
}

TEST_F(Session, RefusesEverythingElseAndKeepsNothing) {
    // Whatever else an archive may be is refused by the helper, and tested with it.
    const auto good = testing::makeArchive(testing::goodUpdate("1.1.0", testing::workingProgram()));
    const auto other =
        testing::makeArchive(testing::goodUpdate("1.0.5", testing::workingProgram()));
    const struct {
        const char* what;
        std::vector<std::byte> archive;
        testing::Item item;
        UpdateProblem problem;
    } cases[] = {
        {"signature of other bytes",
         good,
         {.signature = testing::testSignature(other)},
         UpdateProblem::signatureWrong},
        {"an older archive behind a newer item", other, {}, UpdateProblem::otherVersion},
        {"shorter than announced", good, {.length = good.size() + 1}, UpdateProblem::wrongLength},
    };
    for (const auto& [what, bytes, item, problem] : cases) {
        archive = bytes;
        publish(item);
        start();
        session->checkForUpdates();
        ASSERT_TRUE(comes<scene::Offer>()) << what;
        session->install();
        ASSERT_TRUE(comes<scene::Failed>()) << what;
        EXPECT_EQ(static_cast<int>(shown<scene::Failed>().failure.problem),
                  static_cast<int>(problem))
            << what;
        session.reset();
        EXPECT_EQ(copy.content(), before) << what;
    }
}

TEST_F(Session, TellsWhoManagesACopyBeforeAnyDownload) {
    publish({});
    for (const Management management :
         {Management::dpkg, Management::flatpak, Management::readOnly, Management::nobody}) {
        start(management);
        platform::testing::runFor(100); // no question, no check by itself
        EXPECT_TRUE(scenes.empty());
        session->checkForUpdates();
        ASSERT_TRUE(comes<scene::ManagedElsewhere>());
        EXPECT_EQ(shown<scene::ManagedElsewhere>().management, management);
        EXPECT_EQ(shown<scene::ManagedElsewhere>().version, "1.1.0");
        session->install();
        session->relaunch();
    }
    EXPECT_EQ(askedFor("/archive"), 0);
    EXPECT_EQ(remembered().starts, 0);
}

TEST_F(Session, AlwaysAnswersAndCanBeCancelled) {
    publish({.version = "1.0.0"});
    start();
    session->checkForUpdates();
    ASSERT_TRUE(comes<scene::UpToDate>());
    serve("nonsense");
    session->checkForUpdates();
    ASSERT_TRUE(comes<scene::Failed>());
    EXPECT_EQ(shown<scene::Failed>().failure.problem, UpdateProblem::feedUnreadable);
    EXPECT_EQ(shown<scene::Failed>().doing, scene::Failed::While::looking);

    // At each step, and nothing is left or said afterwards.
    publish({});
    const QByteArray size = "Content-Length: " + QByteArray::number(archive.size());
    const auto slowly = testing::dripping({size}, "xx", 5);
    for (const bool isSlow : {true, false}) {
        if (isSlow) {
            server.handle("/archive", slowly);
        } else {
            publish({});
        }
        session->checkForUpdates();
        session->dismiss();
        session->checkForUpdates();
        ASSERT_TRUE(comes<scene::Offer>());
        session->install();
        if (isSlow) {
            ASSERT_TRUE(comes<scene::Downloading>());
            platform::testing::runFor(60);
        } else {
            ASSERT_TRUE(comes<scene::Ready>());
        }
        session->dismiss();
        platform::testing::runFor(150);
        EXPECT_TRUE(std::holds_alternative<scene::Nothing>(session->scene()));
    }
    // Ended in the middle.
    session->checkForUpdates();
    ASSERT_TRUE(comes<scene::Offer>());
    session->install();
    ASSERT_TRUE(comes<scene::Ready>());
    session.reset();
    EXPECT_EQ(copy.content(), before);
}

TEST_F(Session, HearsNoLateWordOfWhatWasDismissed) {
    feedAddress = QUrl("http://127.0.0.1/feed"); // is refused at once, and nobody has to serve it
    start();
    session->checkForUpdates();
    std::this_thread::sleep_for(200ms); // the word is on its way
    session->dismiss();
    platform::testing::runFor(100);
    EXPECT_TRUE(std::holds_alternative<scene::Nothing>(session->scene()));
}

TEST_F(Session, ConfirmsAVersionOnTrialThatEndsInOrder) {
    const auto root = platform::openFolder(copy.root());
    fs::create_directories(copy.root() / "state");
    {
        const RecordLock lock(root.get());
        InstallationRecord record;
        record.trial = {"1.0.0", "0.9", 1};
        ASSERT_EQ(writeRecord(root.get(), record), 0);
    }
    ASSERT_TRUE(readRecord(root.get(), "1.0.0").trial.has_value());
    trial = 1h;
    start();
    session.reset();
    EXPECT_FALSE(readRecord(root.get(), "1.0.0").trial.has_value());
}

TEST_F(Session, SaysWhatCannotBeStartedOrInstalled) {
    publish({});
    start();
    session->checkForUpdates();
    ASSERT_TRUE(comes<scene::Offer>());
    fs::remove(copy.root() / "versions/1.0.0/libexec/larkvox-install");
    session->install();
    ASSERT_TRUE(comes<scene::Failed>());
    EXPECT_EQ(shown<scene::Failed>().failure.problem, UpdateProblem::installerMissing);

    fs::copy_file(TEST_HELPER, copy.root() / "versions/1.0.0/libexec/larkvox-install");
    canStart = false;
    session->checkForUpdates();
    ASSERT_TRUE(comes<scene::Offer>());
    session->install();
    ASSERT_TRUE(comes<scene::Ready>());
    session->relaunch();
    ASSERT_TRUE(comes<scene::Failed>());
    EXPECT_EQ(shown<scene::Failed>().failure.problem, UpdateProblem::relaunchFailed);
    EXPECT_FALSE(hasQuit);
}

} // namespace
} // namespace updates
