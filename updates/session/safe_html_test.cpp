#include "platform/updates/session/safe_html.hpp"

#include <gmock/gmock.h>

#include <random>
#include <regex>

namespace platform {
namespace {

TEST(SafeHtml, KeepsTextAndDropsWhatActsOrLoads) {
    const struct {
        std::string_view from;
        std::string_view to;
    } cases[] = {
        {"plain & <b>bold</b> &amp; &lt;x&gt;", "plain & <b>bold</b> &amp; &lt;x&gt;"},
        {"<H1 style=\"x\" onclick='evil()'>A</h1>", "<h1>A</h1>"},
        {"a<br>b<hr/>", "a<br/>b<hr/>"},
        {"<script>evil()</script>a<style>b{}</style>", "a"},
        {"<ScRiPt >evil('</div>')</sCrIpT x>a", "a"},
        {"<script>never closed", ""},
        {"<head><title>T</title></head><body>B</body>", "B"},
        {"<svg><a href=\"https://a\">x</a></svg>y", "y"},
        {"<img src=\"https://a/b.png\" onerror=evil()>x", "x"},
        {"<iframe src=https://a>in</iframe>out", "out"},
        {"<!-- <b> -->a<!DOCTYPE x><?php ?>b", "ab"},
        {"<!-- never closed", ""},
        {"1 < 2 > 0 \"q\"", "1 &lt; 2 &gt; 0 &quot;q&quot;"},
        {"<p>a<li>b", "<p>a<li>b</li></p>"},
        {"a</p></b></nonsense>", "a"},
        {"<b><i>x</b>y</i>", "<b><i>x</i></b>y"},
        {"<table><tr><td>a</td></tr><tr><td>b</td></tr></table>", "<br/>a<br/><br/>b<br/>"},
        {"<a href=\"https://a.b/c?d=1&amp;e=2\" target=_blank>x</a>",
         "<a href=\"https://a.b/c?d=1&amp;e=2\">x</a>"},
        {"<a href=https://a.b/c?d&copy=1>x</a>", "<a href=\"https://a.b/c?d&amp;copy=1\">x</a>"},
        {"<a href=' MAILTO:a@b '>x</a>", "<a href=\"MAILTO:a@b\">x</a>"},
        {"<a href=\"https://a/\" href=\"file:///etc\">x</a>", "<a href=\"https://a/\">x</a>"},
        {"<a href=javascript:evil()>x</a>", "x"},
        {"<a href=\"java&#115;cript:evil()\">x</a>", "x"},
        {"<a href=\"&#x66;ile:///etc/passwd\">x</a>", "x"},
        {"<a href=\"https://a/&#34;&#x3e;&#60;script&#62;\">x</a>",
         "<a href=\"https://a/&quot;&gt;&lt;script&gt;\">x</a>"},
        {"<a href=\"https://a/\nb\">x</a>", "x"},
        {"<a href=\"https://a/&#10;b\">x</a>", "x"},
        {"<a href=\"//a/b\">x</a><a href=c>y</a><a>z</a>", "xyz"},
        {"<a href=\"data:text/html,x\">x</a>", "x"},
        {"<b", "<b></b>"},
        {"<a href=\"https://a", "<a href=\"https://a\"></a>"},
        {"\x01\x02"
         "a",
         "a"},
    };
    for (const auto& [from, to] : cases) {
        EXPECT_EQ(safeHtml(from), to) << from;
    }
    EXPECT_EQ(htmlOfText("a<b>\n\"c\" & d\r\n"),
              "<p>a&lt;b&gt;<br/>&quot;c&quot; &amp; d<br/></p>");
}

TEST(SafeHtml, IsBoundedInSizeAndDepth) {
    std::string deep;
    for (int i = 0; i < 100'000; ++i) {
        deep += "<ul><li>";
    }
    const std::string safe = safeHtml(deep);
    EXPECT_LT(safe.size(), 1000U);
    EXPECT_TRUE(safe.ends_with("</li></ul>"));
    EXPECT_EQ(safeHtml(std::string(1 << 20, 'x')).size(), 256U << 10U);
    EXPECT_LT(safeHtml(std::string(1 << 20, '<')).size(), 1U << 21U);
}

/// Whatever goes in, what comes out has nothing but the few tags, in balance.
TEST(SafeHtml, HasOnlyItsOwnTagsWhateverGoesIn) {
    constexpr std::string_view pieces[] = {"<",
                                           ">",
                                           "/",
                                           "a",
                                           " href=",
                                           "\"",
                                           "'",
                                           "https://x",
                                           "javascript:",
                                           "<b>",
                                           "</b>",
                                           "<script",
                                           "</script>",
                                           "<!--",
                                           "-->",
                                           "&#",
                                           ";",
                                           "&lt;",
                                           "<img src=x>",
                                           "style=\"",
                                           "<p",
                                           "\n",
                                           "<a href=\"https://y\">",
                                           "</a",
                                           "<svg>",
                                           "\xff",
                                           "=",
                                           "x"};
    const std::regex tag("<(/?)([a-z0-9]+)( href=\"(https?://|mailto:)[^\"<>]*\")?(/?)>");
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        std::string html;
        for (int i = 0; i < 30; ++i) {
            html += pieces[random() % std::size(pieces)];
        }
        const std::string safe = safeHtml(html);
        std::vector<std::string> open;
        std::size_t tags = 0;
        for (std::sregex_iterator i(safe.begin(), safe.end(), tag); i != std::sregex_iterator();
             ++i, ++tags) {
            const std::string name = (*i)[2];
            ASSERT_TRUE(name == "a" || name == "b" || name == "p") << html;
            if ((*i)[1].length() == 0) {
                open.push_back(name);
            } else {
                ASSERT_FALSE(open.empty()) << html;
                ASSERT_EQ(open.back(), name) << html;
                open.pop_back();
            }
        }
        ASSERT_TRUE(open.empty()) << html;
        ASSERT_EQ(std::ranges::count(safe, '<'), static_cast<std::ptrdiff_t>(tags)) << html;
    }
}

} // namespace
} // namespace platform
