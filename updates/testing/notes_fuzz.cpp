// Whatever notes say, what is shown of them has nothing but the few tags, in balance and within the
// bounds, in valid text, with links to web and mail only; and to make it safe once more changes
// nothing.
#include "updates/session/safe_html.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

void require(bool isTrue, const char* what) {
    if (!isTrue) {
        std::fprintf(stderr, "broken rule: %s\n", what);
        std::abort();
    }
}

constexpr std::string_view allowed[] = {
    "a",  "b",  "blockquote", "br", "code", "dd", "dl", "dt",  "em", "h1",     "h2",  "h3",  "h4",
    "h5", "h6", "hr",         "i",  "li",   "ol", "p",  "pre", "s",  "strong", "sub", "sup", "ul"};

/// What stands between "<" and ">".
void requireTag(std::string_view tag, std::vector<std::string_view>& open) {
    if (tag.starts_with('/')) {
        require(!open.empty() && open.back() == tag.substr(1), "balanced");
        open.pop_back();
        return;
    }
    const std::string_view name = tag.substr(0, tag.find_first_of(" /"));
    require(std::ranges::count(allowed, name) == 1, "one of the few elements");
    const std::string_view rest = tag.substr(name.size());
    if (rest == "/") {
        return;
    }
    open.push_back(name);
    require(open.size() <= 8, "not deep");
    if (!rest.empty()) {
        require(name == "a" && rest.starts_with(" href=\"") && rest.ends_with('"'),
                "one attribute");
        std::string address(rest.substr(7, rest.size() - 8));
        require(address.find_first_of("\"<> \t\n") == std::string::npos, "an address");
        std::ranges::transform(address, address.begin(), [](char c) {
            return static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
        });
        require(address.starts_with("https://") || address.starts_with("http://") ||
                    address.starts_with("mailto:"),
                "to web or mail");
    }
}

void requireSafe(const std::string& html) {
    std::vector<std::string_view> open;
    std::size_t elements = 0;
    for (std::size_t at = 0; at < html.size(); ++at) {
        require(static_cast<unsigned char>(html[at]) >= 0x20 || html[at] == '\n' ||
                    html[at] == '\t' || html[at] == '\r' || html[at] == '\f',
                "characters that are shown");
        if (html[at] == '<') {
            const std::size_t end = html.find('>', at);
            require(end != std::string::npos, "an end");
            requireTag(std::string_view(html).substr(at + 1, end - at - 1), open);
            ++elements;
            at = end;
        } else {
            require(html[at] != '>' && html[at] != '"', "escaped");
        }
    }
    require(open.empty(), "closed");
    require(elements <= 1300, "few elements");
}

std::string withoutWordBreaks(std::string html) {
    for (auto at = html.find("\u200b"); at != std::string::npos; at = html.find("\u200b", at)) {
        html.erase(at, 3);
    }
    return html;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto safe = updates::safeHtml(input);
    requireSafe(safe.html);
    require(safe.isCut || withoutWordBreaks(updates::safeHtml(safe.html).html) ==
                              withoutWordBreaks(safe.html),
            "safe is safe");
    requireSafe(updates::htmlOfText(input).html);
    return 0;
}
