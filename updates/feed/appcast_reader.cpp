#include "updates/feed/appcast_reader.hpp"

#include "updates/feed/version_order.hpp"

#include <expat.h>

#include <algorithm>
#include <charconv>
#include <memory>
#include <string_view>
#include <type_traits>

namespace updates {
namespace {

// An item is kept once for each of its enclosures, with all its texts.
constexpr std::size_t mostEnclosures = 8;
constexpr std::uint64_t longestInterval = std::uint64_t{366} * 24 * 60 * 60; // seconds

// Where elements stand: rss, channel, item, and what an item consists of.
constexpr int itemDepth = 3;
constexpr int fieldDepth = 4;

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view spaces = " \t\r\n";
    const auto begin = text.find_first_not_of(spaces);
    return begin == std::string_view::npos
               ? std::string_view()
               : text.substr(begin, text.find_last_not_of(spaces) - begin + 1);
}

/// The whole text as a number; nothing when it is none or too large.
std::optional<std::uint64_t> numberIn(std::string_view text) {
    std::uint64_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

/// What an element of an item is read into.
struct Field {
    std::string_view element;
    std::string AppcastItem::*text;
    /// Where two different texts leave open what is meant; of others the first one counts.
    bool mustBeClear = false;
};

constexpr Field fields[] = {
    {"title", &AppcastItem::title},
    {"pubDate", &AppcastItem::pubDate, true},
    {"description", &AppcastItem::description},
    {"sparkle:version", &AppcastItem::version, true},
    {"sparkle:shortVersionString", &AppcastItem::shortVersionString},
    {"sparkle:minimumSystemVersion", &AppcastItem::minimumSystemVersion, true},
    {"sparkle:channel", &AppcastItem::channel, true},
    {"sparkle:releaseNotesLink", &AppcastItem::releaseNotesLink},
};

/// One item while it is being read.
struct Draft {
    AppcastItem item;
    std::vector<AppcastEnclosure> enclosures;
    bool isClear = true;

    void set(std::string AppcastItem::*member, std::string_view text, bool mustBeClear) {
        std::string& value = item.*member;
        if (value.empty()) {
            value = text;
        } else if (mustBeClear && !text.empty() && value != text) {
            isClear = false;
        }
    }

    void addEnclosure(const XML_Char** attributes) {
        AppcastEnclosure enclosure;
        for (; *attributes != nullptr; attributes += 2) {
            const std::string_view name = attributes[0];
            const std::string_view value = trimmed(attributes[1]);
            if (name == "url") {
                enclosure.url = value;
            } else if (name == "length") {
                enclosure.length = numberIn(value).value_or(0);
            } else if (name == "type") {
                enclosure.type = value;
            } else if (name == "sparkle:edSignature") {
                enclosure.edSignature = value;
            } else if (name == "sparkle:os") {
                enclosure.os = value;
            } else if (name == "sparkle:version") {
                set(&AppcastItem::version, value, true);
            } else if (name == "sparkle:shortVersionString") {
                set(&AppcastItem::shortVersionString, value, false);
            }
        }
        if (enclosures.size() == mostEnclosures) {
            isClear = false;
        } else if (!enclosure.url.empty()) {
            enclosures.push_back(std::move(enclosure));
        }
    }
};

class Reader {
  public:
    explicit Reader(XML_Parser parser) : parser_(parser) {}

    void start(std::string_view name, const XML_Char** attributes) {
        if (fault_) {
            return;
        }
        ++depth_;
        for (auto next = attributes; depth_ < itemDepth && *next != nullptr; next += 2) {
            appcast_.declaresPrefix |= std::string_view(*next) == "xmlns:sparkle";
        }
        if (depth_ > deepestFeed) {
            stop(FeedFault::tooDeep);
        } else if (depth_ == 1 && name != "rss") {
            stop(FeedFault::notAFeed);
        } else if (depth_ == 2) {
            isInChannel_ = name == "channel";
            hasChannel_ = hasChannel_ || isInChannel_;
        } else if (depth_ == itemDepth) {
            isInItem_ = isInChannel_ && name == "item";
            draft_ = {};
            if (isInItem_) {
                noteFirstByte();
            }
        } else if (depth_ == fieldDepth && isInItem_) {
            startField(name, attributes);
        } else if (depth_ == fieldDepth + 1 && isInTags_ && name == "sparkle:criticalUpdate") {
            draft_.item.isCritical = true;
        }
    }

    void characters(std::string_view text) {
        if (!fault_ && (field_ != nullptr || isInInterval_)) {
            text_ += text;
        }
    }

    void end() {
        if (fault_) {
            return;
        }
        if (depth_ == fieldDepth && isInItem_) {
            endField();
        } else if (depth_ == itemDepth && isInItem_) {
            endItem();
        } else if (depth_ == itemDepth - 1 && isInChannel_ &&
                   XML_GetCurrentByteCount(parser_) > 0) {
            noteFirstByte(); // of an end tag; a channel that is a single tag has none
        }
        --depth_;
    }

    void documentType(std::string_view name) {
        // The sign-in pages of networks begin like this.
        const bool isWebPage = name.size() == 4 && (name[0] | 32) == 'h' && (name[1] | 32) == 't' &&
                               (name[2] | 32) == 'm' && (name[3] | 32) == 'l';
        stop(isWebPage ? FeedFault::notAFeed : FeedFault::documentType);
    }

    /// What came of it, when the parser has come to its end.
    [[nodiscard]] std::variant<Appcast, FeedFault> finish(bool isWellFormed) {
        if (fault_) {
            return *fault_;
        }
        if (!isWellFormed) {
            return FeedFault::malformed;
        }
        if (!hasChannel_) {
            return FeedFault::notAFeed;
        }
        return std::move(appcast_);
    }

  private:
    void noteFirstByte() {
        if (!appcast_.firstByte) {
            appcast_.firstByte = static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_));
        }
    }

    void stop(FeedFault fault) {
        fault_ = fault;
        XML_StopParser(parser_, XML_FALSE);
    }

    void startField(std::string_view name, const XML_Char** attributes) {
        text_.clear();
        if (name == "enclosure") {
            draft_.addEnclosure(attributes);
            return;
        }
        if (name == "sparkle:criticalUpdate") {
            draft_.item.isCritical = true;
            for (; *attributes != nullptr; attributes += 2) {
                if (std::string_view(attributes[0]) == "sparkle:version") {
                    draft_.item.criticalBelow = trimmed(attributes[1]);
                }
            }
            return;
        }
        isInTags_ = name == "sparkle:tags";
        isInInterval_ = name == "sparkle:phasedRolloutInterval";
        const auto found = std::ranges::find(fields, name, &Field::element);
        field_ = found == std::end(fields) ? nullptr : found;
    }

    void endField() {
        const std::string_view text = trimmed(text_);
        if (field_ != nullptr) {
            draft_.set(field_->text, text, field_->mustBeClear);
        } else if (isInInterval_) {
            if (const auto seconds = numberIn(text); seconds && *seconds > 0) {
                draft_.item.phasedRolloutInterval =
                    std::chrono::seconds(std::min(*seconds, longestInterval));
            }
        }
        field_ = nullptr;
        isInInterval_ = false;
        isInTags_ = false;
    }

    void endItem() {
        isInItem_ = false;
        auto& [item, enclosures, isClear] = draft_;
        if (!isClear || !isVersion(item.version) || enclosures.empty()) {
            ++appcast_.ignoredItems;
            return;
        }
        for (AppcastEnclosure& enclosure : enclosures) {
            item.enclosure = std::move(enclosure);
            appcast_.items.push_back(item);
        }
    }

    XML_Parser parser_;
    Appcast appcast_;
    std::optional<FeedFault> fault_;
    int depth_ = 0;
    bool isInChannel_ = false;
    bool hasChannel_ = false;
    bool isInItem_ = false;
    bool isInTags_ = false;
    bool isInInterval_ = false;
    const Field* field_ = nullptr;
    Draft draft_;
    std::string text_;
};

Reader& readerOf(void* user) {
    return *static_cast<Reader*>(user);
}

} // namespace

std::variant<Appcast, FeedFault> readAppcast(std::span<const std::byte> document) {
    if (document.size() > largestFeed) {
        return FeedFault::tooLarge;
    }
    // The feed's own names are known by their prefix, so namespaces need not be resolved.
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate(nullptr), &XML_ParserFree);
    if (parser == nullptr) {
        return FeedFault::malformed;
    }
    Reader reader(parser.get());
    XML_SetUserData(parser.get(), &reader);
    XML_SetElementHandler(
        parser.get(),
        [](void* user, const XML_Char* name, const XML_Char** attributes) {
            readerOf(user).start(name, attributes);
        },
        [](void* user, const XML_Char*) { readerOf(user).end(); });
    XML_SetCharacterDataHandler(parser.get(), [](void* user, const XML_Char* text, int length) {
        readerOf(user).characters({text, static_cast<std::size_t>(length)});
    });
    XML_SetStartDoctypeDeclHandler(parser.get(),
                                   [](void* user, const XML_Char* name, const XML_Char*,
                                      const XML_Char*, int) { readerOf(user).documentType(name); });
    // In one piece: a parser that is fed bit by bit starts its longest token over and over.
    const XML_Status status =
        XML_Parse(parser.get(), reinterpret_cast<const char*>(document.data()),
                  static_cast<int>(document.size()), XML_TRUE);
    return reader.finish(status == XML_STATUS_OK);
}

} // namespace updates
