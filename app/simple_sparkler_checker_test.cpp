#include "app/simple_sparkler_checker.hpp"

#include <gmock/gmock.h>

namespace larkvox {
namespace {

using testing::ElementsAre;
using Versions = std::vector<std::string>;

std::string version(const std::string& text) {
    return "<sparkle:shortVersionString>" + text + "</sparkle:shortVersionString>";
}

std::string feed(const std::string& content) {
    return "<rss xmlns:sparkle='u'>" + content + "<end/></rss>";
}

TEST(VersionScore, WeighsThePiecesByTheirPlace) {
    const struct {
        const char* version;
        std::int64_t score;
    } cases[] = {{"1.2.3", 10203},
                 {"2.0", 20000},
                 {"1.100", 20000},
                 {"1.2.3.4", 10207},
                 {"1.2b", 10000},
                 {"", 0},
                 {"...", 0},
                 {"1..2", 10200},
                 {".1", 10000},
                 {"1.9", 10900},
                 {"1.10", 11000},
                 {"20240131", 202401310000},
                 {"+1.-2.+3", 9803},
                 {"-1.2", -9800},
                 {"+-1.--2.++3.-.+", 0},
                 {"1. 2", 10000},
                 {"0x10.1e2", 0},
                 {"007", 70000},
                 {"99999999999999999999.2", 200}, // too large for an integer
                 {"1.9223372036854775808", 10000},
                 {"1.\xD9\xA3", 10000}, // digits of another script
                 {"922337203685477.58.7", 9223372036854775807}};
    for (const auto& [text, score] : cases) {
        EXPECT_EQ(SimpleSparklerChecker::versionScore(text), score) << text;
    }
}

TEST(VersionScoreDeathTest, StopsTheProgramOnOverflow) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const char* const text : {"9223372036854775807", "922337203685477.58.8",
                                   "0.92233720368547759", "-922337203685477.-58.-9"}) {
        EXPECT_DEATH((void)SimpleSparklerChecker::versionScore(text), "Fatal error: .*overflow");
    }
}

TEST(LatestVersion, IsTheLowestAndTheEarliestAmongEquals) {
    const struct {
        Versions versions;
        std::optional<std::string> latest;
    } cases[] = {{{}, {}},
                 {{"1.9", "1.10"}, "1.9"},
                 {{"1.10", "1.9"}, "1.9"},
                 {{"1.100", "2.0", "3"}, "1.100"},
                 {{"3", "2.0", "1.100"}, "2.0"},
                 {{"1", "beta", "-1"}, "-1"}};
    for (const auto& [versions, latest] : cases) {
        SimpleSparklerChecker checker;
        checker.versions = versions;
        EXPECT_EQ(checker.latestVersion(), latest);
    }
}

TEST(Appcast, GivesItsVersions) {
    const std::string item = "<item>" + version("1.2") + "</item>";
    std::string wide = "\xFF\xFE";
    for (const char c : feed(version("1.2"))) {
        wide += {c, '\0'};
    }
    const struct {
        const char* what;
        std::string document;
        Versions versions;
    } cases[] = {
        {"sixteen bits", wide, {"1.2"}},
        {"none", feed("<item><sparkle:version>3</sparkle:version></item>"), {}},
        {"an end tag right behind", feed(item), {"1.2", "1.2"}},
        {"two of them, and text that grows",
         feed("<a><b>" + version(" 1") + "</b>.2 </a>"),
         {"1", "1", "1.2"}},
        {"a start tag between", feed("<item>" + version("1.2") + "<x/></item>"), {"1.2"}},
        {"no prefix declared at all", "<rss>" + version("1.2") + "<x/></rss>", {"1.2"}},
        {"another prefix",
         "<rss xmlns:s='u'><s:shortVersionString>1</s:shortVersionString></rss>",
         {}},
        {"a name without prefix", feed("<shortVersionString xmlns='u'>1</shortVersionString>"), {}},
        {"an empty element", feed("<sparkle:shortVersionString/>"), {""}},
        {"white space of any kind",
         feed(version("\n\t \xC2\xA0\xE2\x80\x83 1.2\xC2\xA0 b \xE3\x80\x80\r\n")),
         {"1.2\xC2\xA0 b"}},
        {"references, sections, comments",
         feed(version("&#49;<![CDATA[.2]]><!-- .3 -->&amp;")),
         {"1.2&"}},
        {"a plain DOCTYPE", "<!DOCTYPE rss SYSTEM 'rss.dtd'>" + feed(version("1")), {"1"}},
        {"a DOCTYPE that declares elements",
         "<!DOCTYPE rss [<!ELEMENT rss ANY>]>" + feed(version("1")),
         {"1"}},
        {"an entity declared", "<!DOCTYPE rss [<!ENTITY v '1'>]>" + feed(version("2")), {}},
        {"a parameter entity declared",
         "<!DOCTYPE rss [<!ENTITY % v SYSTEM 'file:///etc/passwd'>%v;]>" + feed(version("2")),
         {}},
        {"a billion laughs",
         "<!DOCTYPE r [<!ENTITY a 'ha'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;'>"
         "<!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;'>]>" +
             feed(version("&c;")),
         {}},
        {"malformed behind the first", "<rss>" + version("1") + "<b></rss>" + version("2"), {"1"}},
        {"cut off", "<rss>" + version("1") + "<sparkle:shortVersionString>2", {"1"}},
        {"nothing", "", {}},
        {"no XML", std::string("\0\xff<", 3), {}},
    };
    for (const auto& [what, document, versions] : cases) {
        SimpleSparklerChecker checker;
        checker.parse(document);
        EXPECT_EQ(checker.versions, versions) << what;
    }
}

TEST(Appcast, AddsToWhatWasCollectedBefore) {
    SimpleSparklerChecker checker;
    checker.parse(feed(version("1.10")));
    checker.parse("<broken");
    checker.parse(feed(version("1.9")));
    EXPECT_THAT(checker.versions, ElementsAre("1.10", "1.9"));
    EXPECT_EQ(checker.latestVersion(), "1.9");
    EXPECT_EQ(checker.currentElement, "end");
    EXPECT_EQ(checker.currentValue, "");
}

TEST(Appcast, CannotFillTheMemory) {
    // Every one of the end tags would collect the long version again: 40 GB.
    constexpr int depth = 200000;
    std::string document;
    for (int i = 0; i < depth; ++i) {
        document += "<a>";
    }
    document += version(std::string(200000, '1'));
    for (int i = 0; i < depth; ++i) {
        document += "</a>";
    }
    SimpleSparklerChecker checker;
    checker.parse(document);
    EXPECT_GT(checker.versions.size(), 1U);
    EXPECT_LT(checker.versions.size(), 200U);
}

} // namespace
} // namespace larkvox
