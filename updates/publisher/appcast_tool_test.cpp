#include "updates/publisher/appcast_tool.hpp"

#include "platform/system/process.hpp"
#include "updates/feed/signature.hpp"
#include "updates/publisher/feed_check.hpp"
#include "updates/publisher/feed_document.hpp"
#include "updates/publisher/files.hpp"
#include "updates/testing/archive_maker.hpp"

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <sstream>
#include <utility>

namespace updates {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using updates::testing::goodUpdate;
using updates::testing::MadeEntry;
using updates::testing::makeArchive;
using updates::testing::Packing;

namespace fs = std::filesystem;

const std::string system_ = std::string(platform::thisPlatform());

/// A publisher's folder with a key and archives of three versions.
class AppcastTool : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = fs::temp_directory_path() / "appcast_tool_XXXXXX";
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
        ASSERT_EQ(run({"keygen", path("key")}), ExitCode::success) << errors_;
        for (const std::string version : {"1.0.0", "1.1.0", "1.2.0"}) {
            write(archive(version), makeArchive(updateOf(version), Packing::xz));
        }
    }
    void TearDown() override { fs::remove_all(folder_); }

    [[nodiscard]] std::string path(const std::string& name) const { return folder_ / name; }
    /// Whose program trusts the publisher's key, or another one.
    [[nodiscard]] std::vector<MadeEntry> updateOf(const std::string& version,
                                                  const std::string& key = "key") const {
        auto entries = goodUpdate(version, "program");
        auto manifest = updates::testing::goodManifest(version);
        manifest.publicKey = read(key + ".pub").substr(0, 44);
        entries[7].content = archiveManifestText(manifest);
        return entries;
    }
    static std::string archive(const std::string& version) {
        return "larkvox-" + version + ".tar.xz";
    }

    void write(const std::string& name, std::span<const std::byte> content) const {
        std::ofstream file(path(name), std::ios::binary | std::ios::trunc);
        file.write(reinterpret_cast<const char*>(content.data()),
                   static_cast<std::streamsize>(content.size()));
    }
    void write(const std::string& name, std::string_view content) const {
        write(name, std::as_bytes(std::span(content)));
    }
    [[nodiscard]] std::string read(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    ExitCode run(const std::vector<std::string>& words) {
        std::vector<const char*> arguments;
        for (const std::string& word : words) {
            arguments.push_back(word.c_str());
        }
        std::ostringstream out;
        std::ostringstream errors;
        const auto now = std::chrono::sys_seconds(std::chrono::seconds(1741080600 + 60 * runs_++));
        const ExitCode code = runTool(arguments, out, errors, now);
        out_ = out.str();
        errors_ = errors.str();
        return code;
    }

    ExitCode add(const std::string& version, const std::vector<std::string>& more = {}) {
        std::vector<std::string> words{
            "add",   path(archive(version)), "--feed", path("feed.xml"), "--key", path("key"),
            "--url", "https://a.example/"};
        words.insert(words.end(), more.begin(), more.end());
        return run(words);
    }
    ExitCode sign(const std::string& key = "key") {
        return run({"sign", path("feed.xml"), "--key", path(key)});
    }
    ExitCode verify() { return run({"verify", path("feed.xml"), "--public-key", path("key.pub")}); }

    fs::path folder_;
    std::string out_;
    std::string errors_;
    int runs_ = 0;
};

TEST_F(AppcastTool, MakesKeysThatOnlyTheirOwnerCanRead) {
    struct stat status {};
    ASSERT_EQ(stat(path("key").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    const std::string publicKey = read("key.pub").substr(0, 44);
    EXPECT_TRUE(updates::isPublicKey(publicKey));

    const std::string before = read("key");
    EXPECT_EQ(run({"keygen", path("key")}), ExitCode::refused);
    EXPECT_EQ(read("key"), before);
    write("half.pub", "something else");
    EXPECT_EQ(run({"keygen", path("half")}), ExitCode::refused);
    EXPECT_FALSE(fs::exists(path("half")));
    EXPECT_EQ(read("half.pub"), "something else");
    ASSERT_EQ(run({"keygen", path("second")}), ExitCode::success);
    EXPECT_NE(read("second"), before);
    EXPECT_THAT(out_, HasSubstr(read("second.pub")));

    ASSERT_EQ(add("1.0.0"), ExitCode::success) << errors_;
    fs::permissions(path("key"), fs::perms::group_read, fs::perm_options::add);
    EXPECT_EQ(add("1.1.0"), ExitCode::refused);
    EXPECT_THAT(errors_, HasSubstr("chmod 600"));
}

TEST_F(AppcastTool, NeverShowsThePrivateKey) {
    const std::string secret = read("key").substr(read("key").find('\n') + 1, 44);
    ASSERT_EQ(secret.size(), 44U);
    const auto expectHidden = [&] {
        EXPECT_THAT(out_ + errors_, Not(HasSubstr(secret.substr(0, 12))));
    };
    ASSERT_EQ(run({"keygen", path("third")}), ExitCode::success);
    const std::string third = read("third").substr(read("third").find('\n') + 1, 12);
    EXPECT_THAT(out_, Not(HasSubstr(third)));
    ASSERT_EQ(add("1.0.0"), ExitCode::success);
    expectHidden();
    EXPECT_EQ(run({"verify", path("feed.xml"), "--public-key", path("key")}), ExitCode::refused);
    expectHidden();
    write("key", read("key") + "more");
    EXPECT_EQ(add("1.1.0"), ExitCode::refused);
    expectHidden();
    EXPECT_THAT(read("feed.xml"), Not(HasSubstr(secret.substr(0, 12))));
}

TEST_F(AppcastTool, AddsVersionsThatAnUpdaterWouldTake) {
    ASSERT_EQ(add("1.0.0"), ExitCode::success) << errors_;
    write("notes.html", "<p>Grüße & <b>more</b> ]]></p>");
    ASSERT_EQ(
        add("1.1.0", {"--notes", path("notes.html"), "--notes-link", "https://a.example/n?a&b",
                      "--short-version", "1.1", "--minimum-system", "12", "--rollout-hours", "24",
                      "--critical-below", "1.0.5", "--title", "A <title> & \"more\""}),
        ExitCode::success)
        << errors_;
    ASSERT_EQ(add("1.2.0", {"--channel", "beta"}), ExitCode::success) << errors_;
    EXPECT_EQ(verify(), ExitCode::success) << errors_;

    const auto appcast = appcastIn(read("feed.xml"), "feed");
    ASSERT_EQ(appcast.items.size(), 3U);
    EXPECT_EQ(appcast.ignoredItems, 0U);
    EXPECT_EQ(appcast.items[0].channel, "beta");
    const auto& item = appcast.items[1];
    EXPECT_EQ(item.title, "A <title> & \"more\"");
    EXPECT_EQ(item.version, "1.1.0");
    EXPECT_EQ(item.displayVersion(), "1.1");
    EXPECT_EQ(item.pubDate, "Tue, 04 Mar 2025 09:32:00 +0000");
    EXPECT_EQ(item.minimumSystemVersion, "12");
    EXPECT_EQ(item.phasedRolloutInterval, std::chrono::hours(24));
    EXPECT_TRUE(item.isCritical);
    EXPECT_EQ(item.criticalBelow, "1.0.5");
    EXPECT_EQ(item.releaseNotesLink, "https://a.example/n?a&b");
    EXPECT_EQ(item.description, "<p>Grüße & <b>more</b> ]]></p>");
    EXPECT_EQ(item.enclosure.url, "https://a.example/larkvox-1.1.0.tar.xz");
    EXPECT_EQ(item.enclosure.os, system_);
    const std::string bytes = read(archive("1.1.0"));
    EXPECT_EQ(item.enclosure.length, bytes.size());
    EXPECT_EQ(updates::verifySignature(std::as_bytes(std::span(bytes)), item.enclosure.edSignature,
                                       read("key.pub").substr(0, 44)),
              std::nullopt);
}

TEST_F(AppcastTool, KeepsWhatElseTheFeedHolds) {
    const struct {
        std::string before; // the new item goes to the @
        bool declares;      // whether the item has to say what "sparkle" is
    } cases[] = {
        {"<?xml version='1.0' encoding='UTF-8'?>\r\n<!-- ours --><rss xmlns:sparkle='u'\n version="
         "\"2.0\"><channel x='1'><unknown:thing xmlns:unknown='v'> &amp; <![CDATA[<item>]]>"
         "</unknown:thing>@<item><odd/></item><later/></channel></rss>\n<!-- end -->",
         false},
        {"<rss><channel><title>Grüße</title>@</channel></rss>", true},
        {"<rss><other><item/></other><channel xmlns:sparkle='u'>@</channel></rss>", false},
    };
    for (const auto& [marked, declares] : cases) {
        const auto at = marked.find('@');
        const std::string head = marked.substr(0, at);
        const std::string tail = marked.substr(at + 1);
        write("feed.xml", head + tail);
        fs::permissions(path("feed.xml"), fs::perms(0640));
        ASSERT_EQ(sign(), ExitCode::success) << errors_;
        ASSERT_EQ(add("1.0.0"), ExitCode::success) << errors_ << marked;
        const std::string after = read("feed.xml");
        EXPECT_TRUE(after.starts_with(head)) << after;
        EXPECT_TRUE(after.ends_with(tail)) << after;
        EXPECT_EQ(after.find("<item xmlns:sparkle=") != std::string::npos, declares) << after;
        EXPECT_EQ(appcastIn(after, "feed").items.size(), 1U);
        EXPECT_EQ(fs::status(path("feed.xml")).permissions(), fs::perms(0640));
    }
    fs::rename(path("feed.xml"), path("real.xml"));
    fs::create_symlink("real.xml", path("feed.xml"));
    ASSERT_EQ(add("1.1.0"), ExitCode::success) << errors_;
    EXPECT_TRUE(fs::is_symlink(path("feed.xml")));
    EXPECT_EQ(appcastIn(read("real.xml"), "feed").items.size(), 2U);
}

TEST_F(AppcastTool, LeavesTheFeedAloneWhenItCannotAdd) {
    ASSERT_EQ(add("1.1.0"), ExitCode::success) << errors_;
    const std::string good = read("feed.xml");
    write("not-an-archive", "nonsense");
    fs::create_directory(path("folder"));
    write("broken.html", "<p>\xff</p>");
    write("large.html", std::string(updates::largestFeed - 1000, 'x'));
    auto odd = updateOf("1.2.0");
    odd.push_back({"Larkvox/versions/1.2.0/../x", MadeEntry::Type::file, "x"});
    write("unsafe", makeArchive(odd));
    // What would be installed and could never be updated again.
    for (const auto& [name, index] : {std::pair("no-program", 6), std::pair("no-helper", 9)}) {
        auto entries = updateOf("1.2.0");
        entries.erase(entries.begin() + index);
        write(name, makeArchive(entries));
    }
    ASSERT_EQ(run({"keygen", path("other")}), ExitCode::success);
    write("foreign", makeArchive(updateOf("1.2.0", "other")));
    write("keyless", makeArchive(updateOf("1.2.0", "no such file")));

    const auto expectRefused = [&](ExitCode code, ExitCode expected, const std::string& message) {
        EXPECT_EQ(code, expected) << errors_;
        EXPECT_THAT(errors_, HasSubstr(message));
        EXPECT_EQ(out_, "");
    };
    const auto addFile = [&](const std::string& name) {
        return run({"add", path(name), "--feed", path("feed.xml"), "--key", path("key"), "--url",
                    "https://a.example/"});
    };
    expectRefused(add("1.1.0"), ExitCode::refused, "already");
    expectRefused(add("1.0.0"), ExitCode::refused, "backwards");
    expectRefused(add("1.2.0", {"--date", "Mon, 03 Mar 2025 09:30:00 GMT"}), ExitCode::refused,
                  "date would go backwards");
    expectRefused(add("1.2.0", {"--notes", path("broken.html")}), ExitCode::refused, "UTF-8");
    expectRefused(add("1.2.0", {"--notes", path("large.html")}), ExitCode::refused, "mebibyte");
    expectRefused(add("1.2.0", {"--notes", path("none.html")}), ExitCode::inputOutput, "none.html");
    expectRefused(add("1.2.0", {"--notes-link", "http://a.example"}), ExitCode::usage, "https");
    expectRefused(add("1.2.0", {"--rollout-hours", "0"}), ExitCode::usage, "from 1");
    expectRefused(add("1.2.0", {"--date", "today"}), ExitCode::usage, "--date");
    expectRefused(add("1.2.0", {"--minimum-system", "new"}), ExitCode::usage, "--minimum-system");
    expectRefused(add("1.2.0", {"--url", "https://b.example/"}), ExitCode::usage, "twice");
    expectRefused(addFile("not-an-archive"), ExitCode::refused, "updaters would refuse it");
    expectRefused(addFile("unsafe"), ExitCode::refused, "not a plain name");
    expectRefused(addFile("no-program"), ExitCode::refused, "no program bin/larkvox");
    expectRefused(addFile("no-helper"), ExitCode::refused, "no program libexec/larkvox-install");
    expectRefused(addFile("foreign"), ExitCode::refused, "trusts another key");
    expectRefused(addFile("keyless"), ExitCode::refused, "no manifest in it");
    expectRefused(addFile("missing"), ExitCode::inputOutput, "missing");
    expectRefused(addFile("folder"), ExitCode::inputOutput, "is not a file");
    EXPECT_EQ(read("feed.xml"), good);

    for (const std::string feed :
         {"<!DOCTYPE rss><rss><channel></channel></rss>", "<html></html>", "<rss><channel>",
          "<rss><channel/></rss>", "",
          "<?xml version='1.0' encoding='iso-8859-1'?><rss><channel></channel></rss>"}) {
        write("feed.xml", feed);
        [[maybe_unused]] const ExitCode signedOrNot = sign();
        expectRefused(add("1.2.0", {"--title", "Größer"}), ExitCode::refused, "feed.xml: ");
        EXPECT_EQ(read("feed.xml"), feed);
    }
    for (const auto& entry : fs::directory_iterator(folder_)) {
        const std::string name = entry.path().filename();
        EXPECT_TRUE(!name.starts_with("feed.xml.") || name == "feed.xml.sig") << name;
    }
}

TEST_F(AppcastTool, FindsWhatIsWrongWithAFeed) {
    ASSERT_EQ(add("1.0.0"), ExitCode::success);
    ASSERT_EQ(add("1.1.0"), ExitCode::success);
    const std::string good = read("feed.xml");
    const std::string archiveBytes = read(archive("1.1.0"));
    const auto items = appcastIn(good, "feed").items;
    const auto changed = [&good](const std::string& from, const std::string& to) {
        std::string text = good;
        const auto at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        return text.replace(at, from.size(), to);
    };
    const std::string other =
        platform::thisPlatform() == "linux-riscv64" ? "linux-x86_64" : "linux-riscv64";
    const struct {
        std::string feed;
        const char* problem;
    } cases[] = {
        {changed("url=\"https", "url=\"http"), "https address"},
        {changed("1.1.0.tar.xz\"", "1.1.9.tar.xz\""), "cannot be read"},
        {changed("1.1.0.tar.xz\"", "1.1.0/\""), "no file name"},
        {changed("length=\"", "length=\"1"), "bytes long"},
        {changed("edSignature=\"", "edSignature=\"\" x=\""), "is not signed"},
        {changed("edSignature=\"", "edSignature=\"A"), "signature that is none"},
        {changed(items[0].enclosure.edSignature, items[1].enclosure.edSignature),
         "another key or of another archive"},
        {changed("version>1.1.0<", "version>1.1.1<"), "archive with version 1.1.0"},
        {changed(system_, other), "archive for "},
        {changed("sparkle:os", "os"), "which system"},
        {changed("version>1.1.0<", "version>0.9<"), "goes backwards"},
        {changed("version>1.1.0<", "version>1.0.0<"), "twice"},
        {changed("version>1.1.0<", "version>newest<"), "leave out 1"},
        {changed("<pubDate>", "<pubDate>on "), "date"},
        {"<rss><channel></channel></rss>", "no version"},
        {"<!DOCTYPE rss><rss><channel></channel></rss>", "DOCTYPE"},
    };
    for (const auto& [feed, problem] : cases) {
        write("feed.xml", feed);
        const ExitCode code = sign();
        EXPECT_EQ(code == ExitCode::success ? verify() : code, ExitCode::refused);
        EXPECT_THAT(errors_, HasSubstr(problem));
        EXPECT_EQ(out_, "");
    }
    const auto verifyWith = [&](const std::string& key, const std::vector<std::string>& more = {}) {
        std::vector<std::string> words{"verify", path("feed.xml"), "--public-key", key};
        words.insert(words.end(), more.begin(), more.end());
        return run(words);
    };
    const auto expectProblem = [&](ExitCode code, const char* problem) {
        EXPECT_EQ(code, ExitCode::refused);
        EXPECT_THAT(errors_, HasSubstr(problem));
    };
    // What the signature does not vouch for is not unpacked.
    write("feed.xml", good);
    write(archive("1.1.0"), std::string(archiveBytes.size(), 'x'));
    ASSERT_EQ(sign(), ExitCode::success);
    expectProblem(verify(), "");
    EXPECT_THAT(errors_, Not(HasSubstr("updaters refuse")));
    write(archive("1.1.0"), archiveBytes);
    ASSERT_EQ(run({"keygen", path("other")}), ExitCode::success);
    expectProblem(verifyWith(path("other.pub")), "another key");
    ASSERT_EQ(sign("other"), ExitCode::success);
    expectProblem(verifyWith(path("other.pub")), "another key or of another archive");
    ASSERT_EQ(sign(), ExitCode::success);
    write(archive("1.1.0"), archiveBytes.substr(1));
    expectProblem(verify(), "");
    fs::create_directory(path("elsewhere"));
    const std::string key = read("key.pub").substr(0, 44);
    expectProblem(verifyWith(key, {"--archives", path("elsewhere")}), "2 problems");
    fs::rename(path(archive("1.0.0")), path("elsewhere/" + archive("1.0.0")));
    write("elsewhere/" + archive("1.1.0"), archiveBytes);
    EXPECT_EQ(verifyWith(key, {"--archives", path("elsewhere")}), ExitCode::success) << errors_;
}

TEST_F(AppcastTool, VouchesForTheWholeFeedAndOnlyWhereItWasAsked) {
    const auto read_ = [this] {
        const std::string feed = read("feed.xml");
        return readSignedAppcast(std::as_bytes(std::span(feed)), read("feed.xml.sig"),
                                 {read("key.pub").substr(0, 44), 0,
                                  std::chrono::sys_seconds(std::chrono::seconds(1741080600))});
    };
    ASSERT_EQ(add("1.0.0"), ExitCode::success) << errors_;
    ASSERT_TRUE(std::holds_alternative<SignedAppcast>(read_()));
    auto serial = std::get<SignedAppcast>(read_()).serial;
    EXPECT_GE(serial, 1741080600U) << "a serial that is lost with its file starts above the last";
    for (const bool isAdding : {false, true}) {
        --runs_; // within the same second
        ASSERT_EQ(isAdding ? add("1.1.0", {"--valid-days", "2"}) : sign(), ExitCode::success);
        EXPECT_GT(std::get<SignedAppcast>(read_()).serial, serial);
        serial = std::get<SignedAppcast>(read_()).serial;
    }
    EXPECT_EQ(verify(), ExitCode::success) << errors_;
    const int then = std::exchange(runs_, 2 * 24 * 60 + runs_);
    EXPECT_EQ(verify(), ExitCode::refused);
    EXPECT_THAT(errors_, HasSubstr("has expired"));
    EXPECT_EQ(add("1.2.0"), ExitCode::success) << "which signs it anew";
    EXPECT_EQ(verify(), ExitCode::success) << errors_;
    runs_ = then + 2 * 24 * 60;

    // What somebody else wrote into the feed is not signed along with the next version.
    const std::string good = read("feed.xml");
    write(archive("1.3.0"), makeArchive(updateOf("1.3.0"), Packing::xz));
    const std::string theirs = std::string(good).insert(good.find("<item>"), "<item/>");
    ASSERT_EQ(run({"keygen", path("other")}), ExitCode::success);
    const struct {
        const char* what;
        std::function<void()> change;
        const char* problem;
    } cases[] = {
        {"changed", [&] { write("feed.xml", theirs); }, "changed since it was signed"},
        {"not signed", [&] { fs::remove(path("feed.xml.sig")); }, "not signed"},
        {"nonsense for a signature", [&] { write("feed.xml.sig", "signed"); }, "not signed"},
        {"another's", [&] { ASSERT_EQ(sign("other"), ExitCode::success); }, "another key"},
    };
    for (const auto& [what, change, problem] : cases) {
        change();
        const std::string before = read("feed.xml");
        EXPECT_EQ(verify(), ExitCode::refused) << what;
        EXPECT_THAT(errors_, HasSubstr(problem));
        EXPECT_EQ(add("1.3.0"), ExitCode::refused) << what;
        EXPECT_THAT(errors_, HasSubstr(problem));
        EXPECT_EQ(read("feed.xml"), before);
        write("feed.xml", good);
        ASSERT_EQ(sign(), ExitCode::success) << errors_;
    }
    EXPECT_EQ(add("1.3.0"), ExitCode::success) << errors_;
}

TEST_F(AppcastTool, HandsOverToANewKeyOnlyWhereThatIsNamed) {
    ASSERT_EQ(run({"keygen", path("next")}), ExitCode::success);
    ASSERT_EQ(run({"keygen", path("other")}), ExitCode::success);
    ASSERT_EQ(add("1.0.0"), ExitCode::success) << errors_;
    write(archive("1.1.0"), makeArchive(updateOf("1.1.0", "next"), Packing::xz));
    EXPECT_EQ(add("1.1.0"), ExitCode::refused);
    EXPECT_EQ(add("1.1.0", {"--new-key", path("other.pub")}), ExitCode::refused);
    EXPECT_THAT(errors_, HasSubstr("trusts another key"));
    EXPECT_EQ(add("1.1.0", {"--new-key", path("next.pub")}), ExitCode::success) << errors_;
    EXPECT_EQ(verify(), ExitCode::refused);
    EXPECT_THAT(errors_, HasSubstr("trusts another key"));
    EXPECT_EQ(run({"verify", path("feed.xml"), "--public-key", path("key.pub"), "--new-key",
                   path("next.pub")}),
              ExitCode::success)
        << errors_;
}

TEST_F(AppcastTool, SaysHowItIsUsed) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"--help"}, {"help"}, {"add", "--help"}}) {
        EXPECT_EQ(run(words), ExitCode::success);
        EXPECT_THAT(out_, HasSubstr("larkvox-appcast add ARCHIVE"));
    }
    for (const std::vector<std::string>& words : {std::vector<std::string>{},
                                                  {"sign"},
                                                  {"keygen"},
                                                  {"sign", "feed"},
                                                  {"sign", "f", "--key", "k", "--valid-days", "0"},
                                                  {"keygen", "a", "b"},
                                                  {"keygen", "--x"},
                                                  {"verify", path("feed.xml")},
                                                  {"verify", "--public-key"},
                                                  {"add", "a", "--feed", "b"}}) {
        EXPECT_EQ(run(words), ExitCode::usage);
        EXPECT_THAT(errors_, HasSubstr("--help"));
    }
}

TEST(FileNames, GoIntoAddressesAndBack) {
    const std::string name = "a b%+ü#?.tar.xz";
    EXPECT_EQ(addressOf("https://a.example/d/", "larkvox-1.0+2.xz"),
              "https://a.example/d/larkvox-1.0%2B2.xz");
    EXPECT_EQ(fileNameIn(addressOf("https://a.example/", name) + "?x/y#z"), name);
    EXPECT_EQ(addressOf("https://a.example/fixed", name), "https://a.example/fixed");
    for (const char* const none :
         {"", "name", "https://a.example", "https://a.example/", "https://a.example/..",
          "https://a.example/%2e%2E", "https://a.example/a%2fb", "https://a.example/%00",
          "https://a.example/%4", "https://a.example/%zz"}) {
        EXPECT_EQ(fileNameIn(none), "") << none;
    }
}

} // namespace
} // namespace updates
