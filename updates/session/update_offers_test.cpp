#include "updates/testing/session_fixture.hpp"

namespace updates {
namespace {

using namespace std::chrono_literals;
using platform::testing::runUntil;
using testing::answering;
using testing::Session;

TEST_F(Session, AsksOnTheSecondStartAndThenChecksInSilence) {
    publish({});
    start();
    ASSERT_TRUE(runUntil([&] { return remembered().starts == 1; }));
    platform::testing::runFor(50);
    EXPECT_TRUE(scenes.empty());
    start();
    ASSERT_TRUE(comes<scene::Permission>());
    session->dismiss(); // no answer
    start();
    ASSERT_TRUE(comes<scene::Permission>());
    EXPECT_EQ(server.requests().size(), 0);
    session->setChecksByItself(true);
    ASSERT_TRUE(comes<scene::Offer>());
    for (const UpdateScene& scene : scenes) {
        EXPECT_FALSE(std::holds_alternative<scene::Checking>(scene));
    }
    EXPECT_EQ(remembered().phaseGroup, 12U % 7);
    EXPECT_EQ(remembered().lastCheck.has_value(), true);
    // Not again within the day.
    start();
    ASSERT_TRUE(runUntil([&] { return remembered().starts == 4; }));
    platform::testing::runFor(100);
    EXPECT_EQ(askedFor("/feed"), 1);

    // What fails in silence is tried again, and a clock that was ten years off does not stop it.
    for (const auto distance : {24h + 1h, 24h * 3652, -24h * 3652}) {
        now = std::chrono::system_clock::now() + distance;
        server.handle("/feed", answering("<html>", "text/html"));
        start();
        ASSERT_TRUE(runUntil([&] { return remembered().failures == 1; }));
        EXPECT_EQ(scenes.empty(), distance < 60 * 24h) << "years without an answer are told";
        publish({});
        start();
        platform::testing::runFor(100);
        EXPECT_EQ(remembered().failures, 1); // an hour has to pass
        now += 1h + 1s;
        start();
        ASSERT_TRUE(comes<scene::Offer>());
        EXPECT_EQ(remembered().failures, 0);
    }
    session->setChecksByItself(false);
    now += 48h;
    start();
    platform::testing::runFor(150);
    EXPECT_TRUE(scenes.empty());
}

TEST_F(Session, TellsWhenTheListOfUpdatesIsOldOrOlderThanBefore) {
    publish({});
    UpdateMemory memory;
    memory.checksByItself = true;
    memory.feedSerial = 5; // higher than what is served
    remember(memory);
    start();
    ASSERT_TRUE(runUntil([&] { return remembered().failures == 1; }));
    EXPECT_TRUE(scenes.empty()) << "it may be a server that is behind";
    EXPECT_EQ(remembered().feedSerial, 5U);
    serial = 5;
    valid = std::chrono::days(1);
    publish({});
    now += 2h;
    start();
    ASSERT_TRUE(comes<scene::Offer>());
    EXPECT_EQ(remembered().feedSerial, 6U);
    // Held back until it has expired: told at once, then once in seven tries.
    now += 25h;
    for (int attempt = 1; attempt <= 8; ++attempt) {
        start();
        ASSERT_TRUE(runUntil([&] { return remembered().failures == attempt; })) << attempt;
        platform::testing::runFor(20);
        const auto* const failed = std::get_if<scene::Failed>(&session->scene());
        ASSERT_EQ(failed != nullptr, attempt == 1 || attempt == 8) << attempt;
        EXPECT_TRUE(failed == nullptr || failed->failure.problem == UpdateProblem::feedExpired);
        now += 25h;
    }
}

TEST_F(Session, RemembersASkippedVersionUntilTheUserAsks) {
    publish({});
    UpdateMemory memory;
    memory.checksByItself = true;
    remember(memory);
    start();
    ASSERT_TRUE(comes<scene::Offer>());
    session->skip();
    EXPECT_EQ(remembered().skippedVersion, "1.1.0");
    const auto asked = askedFor("/feed");
    now += 25h;
    start();
    ASSERT_TRUE(runUntil([&] { return askedFor("/feed") == asked + 1; }));
    ASSERT_TRUE(runUntil([&] { return remembered().lastCheck > now - 1h; }));
    EXPECT_TRUE(scenes.empty());
    // Nobody silences honest versions by having a forged one skipped.
    UpdateMemory silenced = remembered();
    silenced.skippedVersion = "9999";
    remember(silenced);
    now += 25h;
    start();
    ASSERT_TRUE(comes<scene::Offer>());
    session->skip();
    silenced.skippedVersion = "1.1.0";
    silenced.skippedSignature = testing::testSignature({});
    remember(silenced);
    now += 25h;
    start();
    ASSERT_TRUE(comes<scene::Offer>());
    session->skip();
    session->checkForUpdates();
    ASSERT_TRUE(comes<scene::Offer>());
    EXPECT_EQ(remembered().skippedVersion, "");
    session->dismiss(); // later
    now += 25h;
    publish({.more = "<sparkle:criticalUpdate/>"});
    start();
    ASSERT_TRUE(comes<scene::Offer>());
    EXPECT_TRUE(shown<scene::Offer>().isCritical);
    session->skip(); // is not for important ones
    silenced.skippedSignature = testing::testSignature(archive);
    remember(silenced); // skipped before it was found to be important
    now += 25h;
    start();
    ASSERT_TRUE(comes<scene::Offer>());
    EXPECT_EQ(remembered().skippedVersion, "1.1.0");
}

TEST_F(Session, ShowsNothingThatAFeedWordsAsItLikes) {
    const std::string evil = "<description><![CDATA[<b>New</b><script>evil()</script>"
                             "<img src=\"file:///etc/hostname\">]]></description>";
    const auto link = [](const std::string& address) {
        return "<sparkle:releaseNotesLink>" + address + "</sparkle:releaseNotesLink>";
    };
    const auto shortVersion = [](const std::string& text) {
        return "<sparkle:shortVersionString>" + text + "</sparkle:shortVersionString>";
    };
    const std::string notes = server.url("/notes").toString().toStdString();
    const std::string gone = server.url("/gone").toString().toStdString();
    std::string lines;
    for (int i = 0; i < 2000; ++i) {
        lines += "a line\n";
    }
    const struct {
        const char* what;
        testing::Item item;
        bool isLoading = false;
        QString notes = {};
        QString version = "1.1.0";
    } cases[] = {
        {"a description alone", {.more = evil}, false, "<b>New</b>"},
        {"a link that leads nowhere", {.more = evil + link(gone)}, true, "<b>New</b>"},
        {"a link that is not encrypted",
         {.more = evil + link("http" + notes.substr(5))},
         false,
         "<b>New</b>"},
        {"both", {.more = evil + link(notes)}, true, "<h1>New</h1>"},
        {"a version of many lines", {.more = shortVersion(lines)}},
        {"a version that is none", {.more = shortVersion("Your licence has expired, call 555")}},
        {"a proper one", {.more = shortVersion("1.1-beta.2")}, false, {}, "1.1-beta.2"},
        {"a long one",
         {.version = "1." + std::string(60, '1')},
         false,
         {},
         "1." + QString(37, '1') + "…"},
    };
    start();
    for (const auto& [what, item, isLoading, shownNotes, version] : cases) {
        publish(item);
        session->checkForUpdates();
        ASSERT_TRUE(comes<scene::Offer>()) << what;
        EXPECT_EQ(shown<scene::Offer>().isLoadingNotes, isLoading) << what;
        ASSERT_TRUE(runUntil([&] { return !shown<scene::Offer>().isLoadingNotes; })) << what;
        EXPECT_EQ(shown<scene::Offer>().notes, shownNotes) << what;
        EXPECT_EQ(shown<scene::Offer>().version, version) << what;
        session->dismiss();
    }
}

TEST_F(Session, LeadsToThePageOfNotesThatAreTooLong) {
    server.handle("/notes", answering(QByteArray("<p>x</p>").repeated(2000), "text/html"));
    publish({.more = "<sparkle:releaseNotesLink>" + server.url("/notes").toString().toStdString() +
                     "</sparkle:releaseNotesLink>"});
    start();
    session->checkForUpdates();
    ASSERT_TRUE(comes<scene::Offer>());
    ASSERT_TRUE(runUntil([&] { return !shown<scene::Offer>().isLoadingNotes; }));
    EXPECT_EQ(shown<scene::Offer>().notesPage, server.url("/notes"));
    EXPECT_LT(shown<scene::Offer>().notes.size(), 5000);
}

TEST_F(Session, OffersNoVersionAgainByItselfThatDidNotStart) {
    publish({});
    UpdateMemory memory;
    memory.checksByItself = true;
    remember(memory);
    failedVersion = "1.1.0";
    start();
    ASSERT_TRUE(runUntil([&] { return remembered().lastCheck.has_value(); }));
    platform::testing::runFor(50);
    EXPECT_TRUE(scenes.empty());
    session->checkForUpdates();
    ASSERT_TRUE(comes<scene::Offer>());
    EXPECT_TRUE(shown<scene::Offer>().hasFailedBefore);
}

} // namespace
} // namespace updates
