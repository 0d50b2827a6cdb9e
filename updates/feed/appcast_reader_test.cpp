#include "updates/feed/appcast_reader.hpp"

#include <gmock/gmock.h>

namespace updates {
namespace {

using testing::ElementsAre;

std::variant<Appcast, FeedFault> read(std::string_view document) {
    return readAppcast(std::as_bytes(std::span(document)));
}

Appcast appcastOf(std::string_view document) {
    const auto result = read(document);
    EXPECT_TRUE(std::holds_alternative<Appcast>(result)) << document.substr(0, 200);
    return std::holds_alternative<Appcast>(result) ? std::get<Appcast>(result) : Appcast{};
}

std::string feed(const std::string& content) {
    return "<?xml version='1.0'?><rss xmlns:sparkle='u'><channel>" + content + "</channel></rss>";
}

const std::string version = "<sparkle:version>1.2</sparkle:version>";
const std::string enclosure = "<enclosure url='https://a.example/1'/>";
const std::string plain = "<item>" + version + enclosure + "</item>";

std::string repeated(int times, std::string_view text) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

TEST(AppcastReader, ReadsEverythingThatAnItemSays) {
    const Appcast appcast = appcastOf(R"(<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="https://feeds.example/sparkle">
  <channel>
    <title>The channel's own</title><sparkle:version>9</sparkle:version>
    <item>
      <title> Larkvox 1.1 — &#8220;Dawn&#8221; </title>
      <pubDate>Tue, 04 Mar 2025 10:30:00 +0100</pubDate>
      <sparkle:version>1.1.0</sparkle:version>
      <sparkle:shortVersionString>1.1</sparkle:shortVersionString>
      <sparkle:minimumSystemVersion>12.5</sparkle:minimumSystemVersion>
      <sparkle:channel>beta</sparkle:channel>
      <sparkle:phasedRolloutInterval>86400</sparkle:phasedRolloutInterval>
      <sparkle:criticalUpdate sparkle:version="1.0.5"/>
      <sparkle:releaseNotesLink>
        https://a.example/notes.html
      </sparkle:releaseNotesLink>
      <description><![CDATA[<p>Louder & ]]>clearer</description>
      <unknown:thing xmlns:unknown="v"><title>not this</title><enclosure url="x"/></unknown:thing>
      <enclosure url="https://a.example/l.tar.zst" length="18446744073709551615"
                 type="application/zstd" sparkle:edSignature=" c2ln " sparkle:os="linux"/>
      <sparkle:deltas><enclosure url="https://a.example/delta"/></sparkle:deltas>
    </item>
  </channel>
</rss>)");
    EXPECT_EQ(appcast.ignoredItems, 0U);
    ASSERT_EQ(appcast.items.size(), 1U);
    const AppcastItem& item = appcast.items.front();
    EXPECT_EQ(item.title, "Larkvox 1.1 — “Dawn”");
    EXPECT_EQ(item.pubDate, "Tue, 04 Mar 2025 10:30:00 +0100");
    EXPECT_EQ(item.version, "1.1.0");
    EXPECT_EQ(item.displayVersion(), "1.1");
    EXPECT_EQ(item.minimumSystemVersion, "12.5");
    EXPECT_EQ(item.channel, "beta");
    EXPECT_EQ(item.phasedRolloutInterval, std::chrono::days(1));
    EXPECT_TRUE(item.isCritical);
    EXPECT_EQ(item.criticalBelow, "1.0.5");
    EXPECT_EQ(item.releaseNotesLink, "https://a.example/notes.html");
    EXPECT_EQ(item.description, "<p>Louder & clearer");
    EXPECT_EQ(item.enclosure.url, "https://a.example/l.tar.zst");
    EXPECT_EQ(item.enclosure.length, UINT64_MAX);
    EXPECT_EQ(item.enclosure.type, "application/zstd");
    EXPECT_EQ(item.enclosure.edSignature, "c2ln");
    EXPECT_EQ(item.enclosure.os, "linux");
}

TEST(AppcastReader, LeavesOutWhatItCannotUnderstandAndKeepsTheRest) {
    const struct {
        std::string item;
        std::size_t kept;
        std::size_t ignored;
    } cases[] = {
        {"", 0, 1},
        {version, 0, 1},
        {enclosure, 0, 1},
        {version + "<enclosure length='1'/>", 0, 1},
        {version + "<enclosure/>" + enclosure, 1, 0},
        {version + version + enclosure, 1, 0},
        {version + "<sparkle:version>1.3</sparkle:version>" + enclosure, 0, 1},
        {version + "<enclosure url='u' sparkle:version='1.2'/>", 1, 0},
        {version + "<enclosure url='u' sparkle:version='1.3'/>", 0, 1},
        {"<enclosure url='u' sparkle:version='1.2' sparkle:shortVersionString='s'/>", 1, 0},
        {"<sparkle:version>latest</sparkle:version>" + enclosure, 0, 1},
        {"<sparkle:version>../../1</sparkle:version>" + enclosure, 0, 1},
        {"<version>1.2</version>" + enclosure, 0, 1},
        {version + "<sparkle:channel>a</sparkle:channel><sparkle:channel>b</sparkle:channel>" +
             enclosure,
         0, 1},
        {version + "<title>en</title><title>de</title>" + enclosure, 1, 0},
        {version + repeated(8, enclosure), 8, 0},
        {version + repeated(9, enclosure), 0, 1},
        {"<item>" + version + enclosure + "</item>", 0, 1},
    };
    for (const auto& [item, kept, ignored] : cases) {
        const Appcast appcast = appcastOf(feed(plain + "<item>" + item + "</item>" + plain));
        EXPECT_EQ(appcast.items.size(), kept + 2) << item;
        EXPECT_EQ(appcast.ignoredItems, ignored) << item;
    }
    const Appcast outside = appcastOf("<rss><item>" + version + enclosure +
                                      "</item><channel/><other>" + plain + "</other></rss>");
    EXPECT_TRUE(outside.items.empty());
    EXPECT_EQ(outside.ignoredItems, 0U);
}

TEST(AppcastReader, TakesNumbersOnlyWhereTheyMakeSense) {
    const struct {
        const char* text;
        std::uint64_t length;
        std::optional<std::chrono::seconds> interval;
    } cases[] = {{"", 0, {}},
                 {"0", 0, {}},
                 {"12", 12, std::chrono::seconds(12)},
                 {"-12", 0, {}},
                 {"1e3", 0, {}},
                 {"0x10", 0, {}},
                 {"18446744073709551616", 0, {}},
                 {"9223372036854775807", 9223372036854775807, std::chrono::days(366)}};
    for (const auto& [text, length, interval] : cases) {
        const Appcast appcast =
            appcastOf(feed("<item>" + version + "<enclosure url='u' length='" + text +
                           "'/><sparkle:phasedRolloutInterval>" + text +
                           "</sparkle:phasedRolloutInterval><sparkle:tags><sparkle:criticalUpdate/>"
                           "</sparkle:tags></item>"));
        ASSERT_EQ(appcast.items.size(), 1U);
        EXPECT_EQ(appcast.items[0].enclosure.length, length) << text;
        EXPECT_EQ(appcast.items[0].phasedRolloutInterval, interval) << text;
        EXPECT_TRUE(appcast.items[0].isCritical);
    }
}

TEST(AppcastReader, RefusesWhatIsNoFeed) {
    const std::string bomb = "<!DOCTYPE rss [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;'>"
                             "<!ENTITY c '&b;&b;&b;&b;'>]><rss><channel>&c;</channel></rss>";
    const struct {
        std::string document;
        FeedFault fault;
    } cases[] = {
        {"", FeedFault::malformed},
        {"Please sign in", FeedFault::malformed},
        {"{\"items\": []}", FeedFault::malformed},
        {feed(plain) + "<more/>", FeedFault::malformed},
        {feed(plain + "&nbsp;"), FeedFault::malformed},
        {feed(plain + "\xff"), FeedFault::malformed},
        {feed(plain + std::string(1, '\0')), FeedFault::malformed},
        {feed("<item><enclosure url='a' sparkle:edSignature='a' sparkle:edSignature='b'/></item>"),
         FeedFault::malformed},
        {"<html><head><title>Sign in<br></head>", FeedFault::notAFeed},
        {"<!DOCTYPE html><html><p>Sign in", FeedFault::notAFeed},
        {"\n<!doctype HTML PUBLIC '-//W3C//DTD HTML 4.01//EN'><HTML>", FeedFault::malformed},
        {"<!DOCTYPE HTML PUBLIC '-//W3C//DTD HTML 4.01//EN' 'u'><HTML>", FeedFault::notAFeed},
        {"<feed><item/></feed>", FeedFault::notAFeed},
        {"<rss/>", FeedFault::notAFeed},
        {"<rss><item/></rss>", FeedFault::notAFeed},
        {"<!DOCTYPE rss><rss><channel/></rss>", FeedFault::documentType},
        {"<!DOCTYPE rss SYSTEM 'file:///etc/passwd'><rss/>", FeedFault::documentType},
        {bomb, FeedFault::documentType},
        {feed(repeated(100'000, "<a>")), FeedFault::tooDeep},
        {feed(repeated(deepestFeed - 2, "<a>") + repeated(deepestFeed - 2, "</a>") + "<"),
         FeedFault::malformed},
        {feed(repeated(deepestFeed - 1, "<a>")), FeedFault::tooDeep},
        {feed(std::string(largestFeed, ' ')), FeedFault::tooLarge},
    };
    for (const auto& [document, fault] : cases) {
        const auto result = read(document);
        ASSERT_TRUE(std::holds_alternative<FeedFault>(result)) << document.substr(0, 200);
        EXPECT_EQ(std::get<FeedFault>(result), fault) << document.substr(0, 200);
    }
    std::string full = feed(plain);
    full.insert(full.find("<item>"), std::string(largestFeed - full.size(), ' '));
    EXPECT_EQ(appcastOf(full).items.size(), 1U) << "exactly as large as may be";
}

TEST(AppcastReader, RefusesEveryBeginningOfAFeed) {
    const std::string whole = feed(plain);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_TRUE(std::holds_alternative<FeedFault>(read(whole.substr(0, size)))) << size;
    }
}

TEST(AppcastReader, UnderstandsOtherEncodings) {
    const std::string latin = "<?xml version='1.0' encoding='iso-8859-1'?><rss><channel><item>"
                              "<title>Gr\xfc\xdf"
                              "e</title>" +
                              version + enclosure + "</item></channel></rss>";
    std::string wide = "\xff\xfe";
    for (const char c : feed(plain)) {
        wide += c;
        wide += '\0';
    }
    EXPECT_EQ(appcastOf(latin).items.at(0).title, "Grüße");
    EXPECT_EQ(appcastOf(wide).items.at(0).version, "1.2");
    EXPECT_EQ(appcastOf("\xef\xbb\xbf" + feed(plain)).items.at(0).version, "1.2");
}

} // namespace
} // namespace updates
