#pragma once

#include "updates/session/update_session.hpp"
#include "updates/testing/install_testing.hpp"
#include "updates/testing/session_testing.hpp"
#include "updates/testing/test_key.hpp"

#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace updates::testing {

/// What an item of a feed says; by default it is right.
struct Item {
    std::string version = "1.1.0";
    std::string signature = {};
    std::optional<std::uint64_t> length = {};
    std::string more = {};
};

/// A program in an installation, the server of its updates, and its session.
class Session : public ::testing::Test {
  protected:
    Session() {
        server.handle("/notes", answering("<h1>New</h1><script>evil()</script>", "text/html"));
        const std::filesystem::path helper = copy.root() / "versions/1.0.0/libexec/larkvox-install";
        std::filesystem::create_directories(helper.parent_path());
        std::filesystem::copy_file(TEST_HELPER, helper,
                                   std::filesystem::copy_options::overwrite_existing);
        archive = makeArchive(goodUpdate("1.1.0", workingProgram()));
        before = copy.content();
    }

    ~Session() override { session.reset(); }

    void publish(const Item& item) {
        const QByteArray bytes(reinterpret_cast<const char*>(archive.data()),
                               static_cast<qsizetype>(archive.size()));
        server.handle("/archive", servingFile(bytes));
        const std::string feed =
            "<rss xmlns:sparkle=\"s\"><channel><item><sparkle:version>" + item.version +
            "</sparkle:version>" + item.more + "<enclosure url=\"" +
            server.url("/archive").toString().toStdString() + "\" length=\"" +
            std::to_string(item.length.value_or(archive.size())) + "\" sparkle:edSignature=\"" +
            (item.signature.empty() ? testSignature(archive) : item.signature) +
            "\"/></item></channel></rss>";
        serve(feed);
    }

    /// A feed that the maker vouches for, later than all before it.
    void serve(const std::string& feed) {
        server.handle("/feed", answering(QByteArray::fromStdString(feed)));
        server.handle("/feed.sig",
                      answering(QByteArray::fromStdString(testStatement(feed, ++serial, valid))));
    }

    /// Starts the program again.
    void start(Management management = Management::itself) {
        session.reset();
        scenes.clear();
        UpdaterConfiguration configuration;
        configuration.identity.product = "Larkvox";
        configuration.identity.feed = feedAddress;
        configuration.identity.publicKey = publicTestKey;
        configuration.identity.trustAnchors = certificates().authority();
        configuration.version = "1.0.0";
        configuration.arguments = {"--one", "two \xff words"};
        configuration.storePath = folder.filePath("updates.json");
        configuration.limits.resumptionPause = std::chrono::milliseconds(5);
        configuration.trial = trial;
        configuration.now = [this] { return now; };
        configuration.random = [] { return 12U; };
        configuration.examine = [this, management] {
            Installation found = examineInstallation(copy.root() / "versions/1.0.0/bin/larkvox",
                                                     {"/nowhere", "/nowhere"});
            found.failedVersion = failedVersion;
            if (management != Management::itself) {
                found.management = management;
                found.packageName = "larkvox";
            }
            return found;
        };
        configuration.startProgram = [this](const std::filesystem::path& program,
                                            std::vector<std::string> arguments) {
            arguments.insert(arguments.begin(), program.string());
            started = std::move(arguments);
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
        return platform::testing::runUntil(
            [this] { return std::holds_alternative<Scene>(session->scene()); }, milliseconds);
    }
    template<class Scene>
    [[nodiscard]] const Scene& shown() {
        return std::get<Scene>(session->scene());
    }
    void remember(const UpdateMemory& memory) {
        UpdateStore(folder.filePath("updates.json")).change([&](UpdateMemory& kept) {
            kept = memory;
        });
    }
    [[nodiscard]] UpdateMemory remembered() const {
        return UpdateStore(folder.filePath("updates.json")).memory();
    }
    [[nodiscard]] qsizetype askedFor(const QString& path) const {
        return std::ranges::count(server.requests(), path, &HttpsServerRequest::path);
    }

    const QTemporaryDir folder;
    InstalledCopy copy;
    std::map<std::string, std::string> before; // in the installation
    std::vector<std::byte> archive;
    HttpsServer server{certificates().issue("good")};
    QUrl feedAddress = server.url("/feed");
    std::uint64_t serial = 0; // of the feed, and how long it counts
    std::chrono::days valid{7300};
    UpdateMemory::Time now = std::chrono::system_clock::now();
    std::chrono::milliseconds trial{1};
    std::string failedVersion;
    bool canStart = true;
    bool hasQuit = false;
    std::vector<std::string> started;
    std::vector<UpdateScene> scenes;
    std::unique_ptr<UpdateSession> session;
};

} // namespace updates::testing
