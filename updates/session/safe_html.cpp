#include "platform/updates/session/safe_html.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace platform {
namespace {

constexpr std::size_t longestInput = 256U << 10U;
constexpr std::size_t greatestDepth = 32;
constexpr std::size_t longestAddress = 2048;

constexpr std::array<std::string_view, 26> shown{
    "a",  "b",  "blockquote", "br", "code", "dd", "dl", "dt",  "em", "h1",     "h2",  "h3",  "h4",
    "h5", "h6", "hr",         "i",  "li",   "ol", "p",  "pre", "s",  "strong", "sub", "sup", "ul"};
constexpr std::array<std::string_view, 2> single{"br", "hr"};
/// What is inside of these is not text.
constexpr std::array<std::string_view, 15> silent{
    "applet", "audio",  "canvas", "head", "iframe",   "math",  "noscript", "object",
    "script", "select", "style",  "svg",  "template", "title", "video"};

template<std::size_t size>
bool isOneOf(const std::array<std::string_view, size>& names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string lowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), lower);
    return result;
}

void appendEscaped(std::string& to, char c) {
    switch (c) {
    case '<':
        to += "&lt;";
        break;
    case '>':
        to += "&gt;";
        break;
    case '"':
        to += "&quot;";
        break;
    case '&':
        to += "&amp;";
        break;
    default:
        to += c;
    }
}

/// The characters that an address may hide behind references to them; others make it invalid.
std::optional<std::string> decoded(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] != '&') {
            result += text[i++];
            continue;
        }
        const std::size_t end = text.find(';', i);
        if (end == std::string_view::npos) {
            result += text[i++];
            continue;
        }
        const std::string_view name = text.substr(i + 1, end - i - 1);
        if (name == "amp") {
            result += '&';
        } else if (name.starts_with('#')) {
            const bool isHex = name.starts_with("#x") || name.starts_with("#X");
            const std::string_view digits = name.substr(isHex ? 2 : 1);
            std::uint32_t code = 0;
            const auto [rest, fault] = std::from_chars(digits.data(), digits.data() + digits.size(),
                                                       code, isHex ? 16 : 10);
            if (fault != std::errc() || rest != digits.data() + digits.size() || code < 0x21 ||
                code > 0x7e) {
                return std::nullopt;
            }
            result += static_cast<char>(code);
        } else {
            // "&name;" as the parameters of an address have it without being escaped.
            result += '&';
            ++i;
            continue;
        }
        i = end + 1;
    }
    return result;
}

/// An address that may be opened, escaped; nothing when it may not.
std::optional<std::string> safeAddress(std::string_view text) {
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isSpace(text.back())) {
        text.remove_suffix(1);
    }
    const auto address = decoded(text);
    if (!address || address->size() > longestAddress) {
        return std::nullopt;
    }
    const std::string start = lowered(address->substr(0, 8));
    if (!start.starts_with("https://") && !start.starts_with("http://") &&
        !start.starts_with("mailto:")) {
        return std::nullopt;
    }
    std::string result;
    for (const char c : *address) {
        if (static_cast<unsigned char>(c) <= 0x20 || c == 0x7f) {
            return std::nullopt;
        }
        appendEscaped(result, c);
    }
    return result;
}

struct Tag {
    std::string name; // lower case
    bool isEnd = false;
    std::optional<std::string> address; // of a link, escaped
};

class Sanitizer {
  public:
    explicit Sanitizer(std::string_view html) : html_(html.substr(0, longestInput)) {}

    std::string run() {
        while (at_ < html_.size()) {
            if (html_[at_] != '<') {
                text();
            } else if (html_.substr(at_).starts_with("<!--")) {
                skipPast("-->");
            } else if (const char next = peek(1); next == '!' || next == '?') {
                skipPast(">");
            } else if (isLetter(next) || (next == '/' && isLetter(peek(2)))) {
                take(readTag());
            } else {
                result_ += "&lt;";
                ++at_;
            }
        }
        while (!open_.empty()) {
            close();
        }
        return std::move(result_);
    }

  private:
    [[nodiscard]] char peek(std::size_t ahead) const {
        return at_ + ahead < html_.size() ? html_[at_ + ahead] : '\0';
    }

    void skipPast(std::string_view end) {
        const std::size_t found = html_.find(end, at_);
        at_ = found == std::string_view::npos ? html_.size() : found + end.size();
    }

    void text() {
        for (; at_ < html_.size() && html_[at_] != '<'; ++at_) {
            const char c = html_[at_];
            if (c == '>' || c == '"') {
                appendEscaped(result_, c);
            } else if (static_cast<unsigned char>(c) >= 0x20 || isSpace(c)) {
                result_ += c; // references to characters stay as they are
            }
        }
    }

    Tag readTag() {
        Tag tag;
        ++at_;
        if (peek(0) == '/') {
            tag.isEnd = true;
            ++at_;
        }
        const std::size_t begin = at_;
        while (at_ < html_.size() && !isSpace(html_[at_]) && html_[at_] != '>' &&
               html_[at_] != '/' && html_[at_] != '<') {
            ++at_;
        }
        tag.name = lowered(html_.substr(begin, at_ - begin));
        readAttributes(tag);
        return tag;
    }

    void readAttributes(Tag& tag) {
        while (at_ < html_.size() && html_[at_] != '>' && html_[at_] != '<') {
            if (isSpace(html_[at_]) || html_[at_] == '/') {
                ++at_;
                continue;
            }
            const std::size_t begin = at_;
            while (at_ < html_.size() && !isSpace(html_[at_]) && html_[at_] != '=' &&
                   html_[at_] != '>' && html_[at_] != '/') {
                ++at_;
            }
            const std::string name = lowered(html_.substr(begin, at_ - begin));
            skipSpace();
            if (peek(0) != '=') {
                continue;
            }
            ++at_;
            skipSpace();
            const std::string_view value = readValue();
            if (tag.name == "a" && name == "href" && !tag.address) {
                tag.address = safeAddress(value);
            }
        }
        if (peek(0) == '>') {
            ++at_;
        }
    }

    void skipSpace() {
        while (at_ < html_.size() && isSpace(html_[at_])) {
            ++at_;
        }
    }

    std::string_view readValue() {
        const char quote = peek(0);
        if (quote == '"' || quote == '\'') {
            const std::size_t begin = ++at_;
            const std::size_t end = std::min(html_.find(quote, begin), html_.size());
            at_ = std::min(end + 1, html_.size());
            return html_.substr(begin, end - begin);
        }
        const std::size_t begin = at_;
        while (at_ < html_.size() && !isSpace(html_[at_]) && html_[at_] != '>') {
            ++at_;
        }
        return html_.substr(begin, at_ - begin);
    }

    void take(const Tag& tag) {
        if (isOneOf(silent, tag.name)) {
            if (!tag.isEnd) {
                skipElement(tag.name);
            }
        } else if (!isOneOf(shown, tag.name)) {
            // Its text is shown, in a place of its own where it was a block.
            if (tag.name == "div" || tag.name == "tr" || tag.name == "section" ||
                tag.name == "article") {
                result_ += "<br/>";
            }
        } else if (isOneOf(single, tag.name)) {
            result_ += '<' + tag.name + "/>";
        } else if (tag.isEnd) {
            closeUpTo(tag.name);
        } else if (open_.size() < greatestDepth && (tag.name != "a" || tag.address)) {
            result_ += '<' + tag.name;
            if (tag.address) {
                result_ += " href=\"" + *tag.address + '"';
            }
            result_ += '>';
            open_.push_back(tag.name);
        }
    }

    /// To the end of an element whose inside is not ours to read.
    void skipElement(const std::string& name) {
        const std::string end = "</" + name;
        while (at_ < html_.size()) {
            const std::size_t found = html_.find("</", at_);
            if (found == std::string_view::npos) {
                at_ = html_.size();
                return;
            }
            at_ = found;
            if (lowered(html_.substr(found, end.size())) == end) {
                skipPast(">");
                return;
            }
            at_ = found + 2;
        }
    }

    void close() {
        result_ += "</" + open_.back() + '>';
        open_.pop_back();
    }

    void closeUpTo(const std::string& name) {
        if (std::ranges::find(open_, name) == open_.end()) {
            return;
        }
        while (open_.back() != name) {
            close();
        }
        close();
    }

    std::string_view html_;
    std::size_t at_ = 0;
    std::string result_;
    std::vector<std::string> open_;
};

} // namespace

std::string safeHtml(std::string_view html) {
    return Sanitizer(html).run();
}

std::string htmlOfText(std::string_view text) {
    std::string result = "<p>";
    for (const char c : text.substr(0, longestInput)) {
        if (c == '\n') {
            result += "<br/>";
        } else if (static_cast<unsigned char>(c) >= 0x20 || c == '\t') {
            appendEscaped(result, c);
        }
    }
    return result + "</p>";
}

} // namespace platform
