#include "platform/testing/window_testing.hpp"
#include "platform/updates/install/install_testing.hpp"
#include "platform/updates/session/update_session.hpp"
#include "platform/updates/testing/https_server.hpp"
#include "platform/updates/testing/test_key.hpp"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace platform {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::answering;
using testing::runUntil;
using Time = UpdateMemory::Time;

const testing::CertificateFolder& certificates() {
    static const testing::CertificateFolder folder;
    return folder;
}

const Time today = std::chrono::sys_days(std::chrono::year(2027) / 3 / 1);

TEST(UpdateSchedule, IsOnceADayAndSoonerAfterAFailure) {
    const auto memory = [](std::optional<Time> check, std::optional<Time> tried, int failures) {
        UpdateMemory made;
        made.checksByItself = true;
        made.lastCheck = check;
        made.lastTry = tried;
        made.failures = failures;
        return made;
    };
    constexpr auto years = 24h * 3652;
    const struct {
        const char* what;
        UpdateMemory memory;
        std::optional<Time> due;
    } cases[] = {
        {"never asked", {}, std::nullopt},
        {"never checked", memory({}, {}, 0), today},
        {"checked an hour ago", memory(today - 1h, {}, 0), today + 23h},
        {"checked long ago", memory(today - years, {}, 0), today - years + 24h},
        {"checked in ten years", memory(today + years, {}, 0), today},
        {"failed once", memory(today - 30h, today - 10min, 1), today + 50min},
        {"failed often", memory(today - 300h, today - 10min, 50), today - 10min + 24h},
        {"failed in ten years", memory({}, today + years, 7), today},
        {"failed ten years ago", memory({}, today - years, 7), today},
        {"failed, but checked later", memory(today - 1h, today - 2h, 0), today + 23h},
    };
    for (const auto& [what, remembered, due] : cases) {
        EXPECT_EQ(nextCheck(remembered, today), due) << what;
    }
    UpdateMemory no;
    no.checksByItself = false;
    EXPECT_EQ(nextCheck(no, today), std::nullopt);
}

TEST(UpdateStore, RemembersAndForgetsNonsense) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("new/updates.json");
    UpdateMemory memory;
    memory.checksByItself = false;
    memory.starts = 3;
    memory.lastCheck = today;
    memory.lastTry = today - 1h;
    memory.failures = 2;
    memory.skippedVersion = "1.0 \"ä\"";
    memory.phaseGroup = 6;
    UpdateStore(path).set(memory);
    EXPECT_EQ(UpdateStore(path).memory(), memory);
    for (const QByteArray text : {"", "{", "[]", "{\"phaseGroup\": 7, \"starts\": -4}",
                                  "{\"lastCheck\": 1e300, \"checksByItself\": 1}"}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        EXPECT_EQ(UpdateStore(path).memory(), UpdateMemory()) << text.toStdString();
    }
    UpdateStore nowhere("/proc/nowhere/updates.json");
    nowhere.set(memory); // fails, and says nothing
    EXPECT_EQ(nowhere.memory(), memory);
}

/// What an item says; by default it is right.
struct Item {
    std::string version = "1.1.0";
    std::string signature = {};
    std::optional<std::uint64_t> length = {};
    std::string more = {};
};

class Session : public ::testing::Test {
  protected:
    Session() {
        server.handle("/notes", answering("<h1>New</h1><script>evil()</script>", "text/html"));
        const fs::path helper = copy.root() / "versions/1.0.0/libexec/larkvox-install";
        fs::create_directories(helper.parent_path());
        fs::copy_file(TEST_HELPER, helper, fs::copy_options::overwrite_existing);
        archive = testing::makeArchive(testing::goodUpdate("1.1.0", testing::workingProgram()));
        before = copy.content();
    }

    ~Session() override { session.reset(); }

    void publish(const Item& item) {
        const QByteArray bytes(reinterpret_cast<const char*>(archive.data()),
                               static_cast<qsizetype>(archive.size()));
        server.handle("/archive", testing::servingFile(bytes));
        const std::string feed =
            "<rss xmlns:sparkle=\"s\"><channel><item><sparkle:version>" + item.version +
            "</sparkle:version>" + item.more + "<enclosure url=\"" +
            server.url("/archive").toString().toStdString() + "\" length=\"" +
            std::to_string(item.length.value_or(archive.size())) + "\" sparkle:edSignature=\"" +
            (item.signature.empty() ? testing::testSignature(archive) : item.signature) +
            "\"/></item></channel></rss>";
        server.handle("/feed", answering(QByteArray::fromStdString(feed)));
    }

    /// Starts the program again.
    void start(Management management = Management::itself) {
        session.reset();
        scenes.clear();
        UpdaterConfiguration configuration;
        configuration.identity.product = "Larkvox";
        configuration.identity.feed = server.url("/feed");
        configuration.identity.publicKey = testing::publicTestKey;
        configuration.identity.trustAnchors = certificates().authority();
        configuration.version = "1.0.0";
        configuration.arguments = {"--one", "two words"};
        configuration.storePath = folder.filePath("updates.json");
        configuration.limits.resumptionPause = 5ms;
        configuration.trial = 1ms;
        configuration.now = [this] { return now; };
        configuration.random = [] { return 12U; };
        configuration.examine = [this, management] {
            Installation found = examineInstallation(copy.root() / "versions/1.0.0/bin/larkvox",
                                                     {"/nowhere", "/nowhere"});
            if (management != Management::itself) {
                found.management = management;
                found.packageName = "larkvox";
            }
            return found;
        };
        configuration.startProgram = [this](const QString& program, const QStringList& arguments) {
            started = QStringList(program) + arguments;
            return canStart;
        };
        configuration.quit = [this] { hasQuit = true; };
        session = std::make_unique<UpdateSession>(configuration);
        QObject::connect(session.get(), &UpdateSession::sceneChanged,
                         [this](const UpdateScene& scene) { scenes.push_back(scene); });
        session->start();
    }

    template<class Scene>
    [[nodiscard]] bool comes(int milliseconds = 20'000) {
        return runUntil([this] { return std::holds_alternative<Scene>(session->scene()); },
                        milliseconds);
    }
    template<class Scene>
    [[nodiscard]] const Scene& shown() {
        return std::get<Scene>(session->scene());
    }
    [[nodiscard]] UpdateMemory remembered() const {
        return UpdateStore(folder.filePath("updates.json")).memory();
    }
    [[nodiscard]] qsizetype askedFor(const QString& path) const {
        return std::ranges::count(server.requests(), path, &testing::HttpsServerRequest::path);
    }

    const QTemporaryDir folder;
    testing::InstalledCopy copy;
    std::map<std::string, std::string> before; // in the installation
    std::vector<std::byte> archive;
    testing::HttpsServer server{certificates().issue("good")};
    Time now = std::chrono::system_clock::now();
    bool canStart = true;
    bool hasQuit = false;
    QStringList started;
    std::vector<UpdateScene> scenes;
    std::unique_ptr<UpdateSession> session;
};

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
    EXPECT_EQ(server.requests()[0].headers.keys().join(' ').toStdString(),
              "accept accept-encoding accept-language cache-control connection host pragma "
              "user-agent");
    EXPECT_EQ(server.requests()[0].headers["accept-language"], "*");
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
    EXPECT_EQ(started, QStringList({QString::fromStdString(copy.launcher().string()), "--one",
                                    "two words"}));
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
    const auto good = testing::goodUpdate("1.1.0", testing::workingProgram());
    const auto other = testing::goodUpdate("1.0.5", testing::workingProgram());
    std::vector<std::byte> otherBytes = testing::makeArchive(other);
    std::vector<std::byte> goodBytes = testing::makeArchive(good);
    std::vector<std::byte> changed = goodBytes;
    changed[changed.size() / 2] ^= std::byte{1};
    const auto withManifest = [](const std::string& from, const std::string& to) {
        auto entries = testing::goodUpdate("1.1.0", testing::workingProgram());
        for (auto& entry : entries) {
            if (entry.name.ends_with("manifest.json")) {
                const auto at = entry.content.find(from);
                EXPECT_NE(at, std::string::npos);
                entry.content.replace(at, from.size(), to);
            }
        }
        return testing::makeArchive(entries);
    };
    const std::string x86 = "linux-x86_64";
    const struct {
        const char* what;
        std::vector<std::byte> archive;
        Item item;
        UpdateProblem problem;
    } cases[] = {
        {"signature of other bytes",
         goodBytes,
         {.signature = testing::testSignature(otherBytes)},
         UpdateProblem::signatureWrong},
        {"other bytes",
         changed,
         {.signature = testing::testSignature(goodBytes)},
         UpdateProblem::signatureWrong},
        {"somebody's signature",
         goodBytes,
         {.signature = QByteArray(64, 'x').toBase64().toStdString()},
         UpdateProblem::signatureWrong},
        {"an older archive behind a newer item", otherBytes, {}, UpdateProblem::otherVersion},
        {"another product",
         withManifest("\"Larkvox\"", "\"Other\""),
         {},
         UpdateProblem::otherProduct},
        {"another platform",
         withManifest(std::string(thisPlatform()), "plan9-vax"),
         {},
         UpdateProblem::otherPlatform},
        {"no archive",
         std::vector<std::byte>(5000, std::byte{'x'}),
         {},
         UpdateProblem::archiveDamaged},
        {"shorter than announced",
         goodBytes,
         {.length = goodBytes.size() + 1},
         UpdateProblem::wrongLength},
        {"longer than announced",
         goodBytes,
         {.length = goodBytes.size() - 1},
         UpdateProblem::wrongLength},
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
        testing::runFor(100); // no question, no check by itself
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

TEST_F(Session, AsksOnTheSecondStartAndThenChecksInSilence) {
    publish({});
    start();
    ASSERT_TRUE(runUntil([&] { return remembered().starts == 1; }));
    testing::runFor(50);
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
    testing::runFor(100);
    EXPECT_EQ(askedFor("/feed"), 1);

    // What fails in silence is tried again, and a clock that was ten years off does not stop it.
    for (const auto distance : {24h + 1h, 24h * 3652, -24h * 3652}) {
        now = std::chrono::system_clock::now() + distance;
        server.handle("/feed", answering("<html>", "text/html"));
        start();
        ASSERT_TRUE(runUntil([&] { return remembered().failures == 1; }));
        EXPECT_TRUE(scenes.empty());
        publish({});
        start();
        testing::runFor(100);
        EXPECT_EQ(remembered().failures, 1); // an hour has to pass
        now += 1h + 1s;
        start();
        ASSERT_TRUE(comes<scene::Offer>());
        EXPECT_EQ(remembered().failures, 0);
    }
    session->setChecksByItself(false);
    now += 48h;
    start();
    testing::runFor(150);
    EXPECT_TRUE(scenes.empty());
}

TEST_F(Session, RemembersASkippedVersionUntilTheUserAsks) {
    publish({});
    UpdateMemory memory;
    memory.checksByItself = true;
    UpdateStore(folder.filePath("updates.json")).set(memory);
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
    EXPECT_TRUE(std::holds_alternative<scene::Offer>(session->scene()));
    EXPECT_EQ(remembered().skippedVersion, "");
}

TEST_F(Session, AlwaysAnswersAndCanBeCancelled) {
    publish({.version = "1.0.0"});
    start();
    session->checkForUpdates();
    ASSERT_TRUE(comes<scene::UpToDate>());
    server.handle("/feed", answering("nonsense"));
    session->checkForUpdates();
    ASSERT_TRUE(comes<scene::Failed>());
    EXPECT_EQ(shown<scene::Failed>().failure.problem, UpdateProblem::feedUnreadable);

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
            testing::runFor(60);
        } else {
            ASSERT_TRUE(comes<scene::Ready>());
        }
        session->dismiss();
        testing::runFor(150);
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
} // namespace platform
