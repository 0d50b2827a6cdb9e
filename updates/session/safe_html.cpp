#include "updates/session/safe_html.hpp"

#include "updates/session/internal/notes_text.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace updates {
namespace notes {
namespace {

constexpr std::size_t longestInput = 256U << 10U; // bytes, of which most may be markup
constexpr std::size_t longestText = 8U << 10U;    // bytes
constexpr std::size_t mostElements = 600;
constexpr std::size_t mostLines = 300;
constexpr std::size_t greatestDepth = 8; // lists are laid out anew for each list around them
constexpr std::size_t longestWord = 64;  // characters; longer ones may be broken anywhere
constexpr std::string_view wordBreak = "\xe2\x80\x8b"; // U+200B
constexpr std::size_t mostScripts = 2; // beside Latin, Greek, Cyrillic: each has a typeface to load

constexpr std::array<std::string_view, 26> shown{
    "a",  "b",  "blockquote", "br", "code", "dd", "dl", "dt",  "em", "h1",     "h2",  "h3",  "h4",
    "h5", "h6", "hr",         "i",  "li",   "ol", "p",  "pre", "s",  "strong", "sub", "sup", "ul"};
/// What does not begin a line of its own.
constexpr std::array<std::string_view, 9> withinLines{"a", "b",      "code", "em", "i",
                                                      "s", "strong", "sub",  "sup"};
constexpr std::array<std::string_view, 2> single{"br", "hr"};
/// What is inside of these is not text.
constexpr std::array<std::string_view, 15> silent{
    "applet", "audio",  "canvas", "head", "iframe",   "math",  "noscript", "object",
    "script", "select", "style",  "svg",  "template", "title", "video"};

template<std::size_t size>
bool isOneOf(const std::array<std::string_view, size>& names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

struct Tag {
    std::string name; // lower case
    bool isEnd = false;
    std::optional<std::string> address; // of a link, escaped
};

class Sanitizer {
  public:
    explicit Sanitizer(std::string_view html)
        : html_(html.substr(0, longestInput)), isCut_(html.size() > longestInput) {}

    SafeHtml run() {
        while (at_ < html_.size() && !isFull()) {
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
                ++text_;
                ++at_;
            }
        }
        return end();
    }

    /// The same for plain text.
    SafeHtml runAsText() {
        open("p");
        while (at_ < html_.size() && !isFull()) {
            const char c = html_[at_];
            if (c == '\n' || c == '<' || c == '&') {
                c == '\n' ? breakLine() : appendEscaped(result_, c);
                ++text_;
                ++at_;
            } else {
                character();
            }
        }
        return end();
    }

  private:
    [[nodiscard]] bool isFull() const {
        return text_ >= longestText || elements_ >= mostElements || lines_ >= mostLines;
    }

    SafeHtml end() {
        while (!open_.empty()) {
            close();
        }
        return {std::move(result_), isCut_ || at_ < html_.size()};
    }

    void open(const std::string& name, const std::string& attributes = {}) {
        ++elements_;
        lines_ += isOneOf(withinLines, name) ? 0 : 1;
        result_ += '<' + name + attributes + '>';
        open_.push_back(name);
    }

    void breakLine(const std::string& name = "br") {
        ++elements_;
        ++lines_;
        result_ += '<' + name + "/>";
    }

    [[nodiscard]] char peek(std::size_t ahead) const {
        return at_ + ahead < html_.size() ? html_[at_ + ahead] : '\0';
    }

    void skipPast(std::string_view end) {
        const std::size_t found = html_.find(end, at_);
        at_ = found == std::string_view::npos ? html_.size() : found + end.size();
    }

    void text() {
        while (at_ < html_.size() && html_[at_] != '<' && !isFull()) {
            lines_ += html_[at_] == '\n' && !open_.empty() && open_.back() == "pre" ? 1 : 0;
            character();
        }
    }

    /// Takes one. A number that stands for one is replaced by it; a name stays as it is, and any
    /// other "&" is escaped, so that nothing becomes a reference that was none.
    void character() {
        const std::string_view rest = html_.substr(at_);
        if (rest[0] == '&') {
            const std::string_view ahead = rest.substr(1, longestReference);
            const std::string_view name = ahead.substr(0, ahead.find(';'));
            const bool isReference = name.size() < ahead.size();
            at_ += isReference ? name.size() + 2 : 1;
            if (const auto code = isReference ? numberOf(name) : std::nullopt) {
                put(*code);
            } else if (isReference && !name.empty() && std::ranges::all_of(name, isAlphanumeric)) {
                put("&" + std::string(name) + ';');
            } else {
                put('&');
                at_ = html_.size() - rest.size() + 1;
            }
            return;
        }
        const Character one = characterOf(rest);
        at_ += std::max<std::size_t>(one.length, 1);
        if (one.length > 0) {
            put(one.code);
        }
    }

    void put(std::uint32_t code) {
        if (!isShown(code)) {
            return;
        }
        if (const std::uint32_t script = scriptOf(code);
            script != 0 && std::ranges::find(scripts_, script) == scripts_.end()) {
            if (scripts_.size() == mostScripts) {
                isCut_ = true;
                return;
            }
            scripts_.push_back(script);
        }
        std::string one;
        if (code < 0x80) {
            appendEscaped(one, static_cast<char>(code));
        } else {
            one = utf8Of(code);
        }
        put(one);
    }

    /// One character as it is written.
    void put(const std::string& one) {
        word_ = one == wordBreak || isSpace(one[0]) ? 0 : word_ + 1;
        if (word_ > longestWord) {
            result_ += wordBreak;
            word_ = 1;
        }
        result_ += one;
        text_ += one.size();
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
                breakLine();
            }
        } else if (isOneOf(single, tag.name)) {
            breakLine(tag.name);
        } else if (tag.isEnd) {
            closeUpTo(tag.name);
        } else if (open_.size() < greatestDepth && (tag.name != "a" || tag.address)) {
            open(tag.name, tag.address ? " href=\"" + *tag.address + '"' : std::string());
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
    bool isCut_;
    std::size_t at_ = 0;
    std::string result_;
    std::vector<std::string> open_;
    std::vector<std::uint32_t> scripts_;
    std::size_t text_ = 0; // bytes
    std::size_t word_ = 0; // characters since it could last be broken
    std::size_t elements_ = 0;
    std::size_t lines_ = 0;
};

} // namespace
} // namespace notes

SafeHtml safeHtml(std::string_view html) {
    return notes::Sanitizer(html).run();
}

SafeHtml htmlOfText(std::string_view text) {
    return notes::Sanitizer(text).runAsText();
}

} // namespace updates
