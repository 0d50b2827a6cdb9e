#include "updates/session/safe_html.hpp"

#include <gmock/gmock.h>

namespace updates {
namespace {

TEST(SafeHtml, KeepsTextAndDropsWhatActsOrLoads) {
    const struct {
        std::string_view from;
        std::string_view to;
    } cases[] = {
        {"plain & <b>bold</b> &amp; &lt;x&gt;", "plain &amp; <b>bold</b> &amp; &lt;x&gt;"},
        {"&\x01#x202e;&\xff#60;", "&amp;#x202e;&amp;#60;"}, // none may come into being
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
        {"\xc3\xa4\xe2\x82\xac\xf0\x9f\x8e\xb5", "\xc3\xa4\xe2\x82\xac\xf0\x9f\x8e\xb5"},
        {"a\xff\xc3(\xe2\x82\xed\xa0\x80\xc0\xafz", "a(z"},
        {"1\xe2\x80\xae"
         "2\xe2\x81\xa6"
         "3",
         "123"}, // turned around
        {"<a href=\"https://b\xc3\xa4.example\">x</a>", "x"},
        // Numbers are looked at like what they stand for.
        {"&#x202e;a&#60;b&#x26;lt;&#228;&#0;&#xd800;&#1114112;&#65",
         "a&lt;b&amp;lt;\xc3\xa4&amp;#65"},
        // Two scripts beside Latin, Greek and Cyrillic; Chinese and Japanese count as one.
        {"A\u0394\u042f \u6f22\u3072 \u05d0 \u0905\u05d1&#x905;",
         "A\u0394\u042f \u6f22\u3072 \u05d0 \u05d1"},
    };
    for (const auto& [from, to] : cases) {
        EXPECT_EQ(safeHtml(from).html, to) << from;
    }
    EXPECT_EQ(htmlOfText("a<b>\n\"c\" & d\r\n").html,
              "<p>a&lt;b&gt;<br/>&quot;c&quot; &amp; d\r<br/></p>");
}

TEST(SafeHtml, IsBoundedAndSaysWhatIsCut) {
    const auto times = [](std::string_view piece, std::size_t count) {
        std::string text;
        while (count-- > 0) {
            text += piece;
        }
        return text;
    };
    const struct {
        const char* what;
        std::string html;
        std::size_t longest;
        bool isCut;
    } cases[] = {
        {"nested lists", times("<ul><li>", 30'000), 100, false}, // what is too deep is left out
        {"lists side by side", times("<ul><li></ul>", 18'000), 20'000, true},
        {"empty elements", times("<b></b>", 30'000), 10'000, true},
        {"lines", times("<br>", 30'000), 10'000, true},
        {"lines of code", "<pre>" + times("\n", 30'000), 1'000, true},
        {"one word", std::string(1 << 20, 'x'), 9 << 10, true},
        {"no characters", std::string(1 << 20, '\xff'), 0, true},
        {"long addresses", times("<a href=\"https://" + std::string(2000, 'a') + "\">x</a>", 120),
         300'000, false},
        {"references without an end", "<a href=\"https://" + std::string(200'000, '&') + "\">x",
         100, false},
        {"a page", times("<p>A line of a hundred characters.</p>", 100), 4'000, false},
    };
    for (const auto& [what, html, longest, isCut] : cases) {
        const SafeHtml safe = safeHtml(html);
        EXPECT_LE(safe.html.size(), longest) << what;
        EXPECT_EQ(safe.isCut, isCut) << what;
    }
    EXPECT_TRUE(htmlOfText(times("x\n", 1'000)).isCut);
    // Long words may be broken, but not within a reference to a character.
    EXPECT_EQ(safeHtml(std::string(60, 'x') + "&amp;&amp;" + std::string(70, 'y')).html,
              std::string(60, 'x') + "&amp;&amp;yy\u200b" + std::string(64, 'y') + "\u200byyyy");
}

// That whatever goes in comes out with its own tags alone is the rule of the fuzz target.

} // namespace
} // namespace updates
