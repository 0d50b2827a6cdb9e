#include "publisher/feed_document.hpp"

#include "publisher/failure.hpp"

#include <expat.h>

#include <memory>
#include <type_traits>

namespace publisher {
namespace {

using platform::Appcast;
using platform::AppcastItem;
using platform::FeedFault;

// The name that the prefix "sparkle" stands for in our feeds. Nothing is fetched from there.
constexpr std::string_view nameSpace = "https://updates.fennick.example/larkvox/sparkle";

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result += c;
        }
    }
    return result;
}

/// HTML as it is, for people who read the feed.
std::string characterData(std::string_view text) {
    std::string result = "<![CDATA[";
    for (std::size_t end = 0; (end = text.find("]]>")) != std::string_view::npos;) {
        result.append(text.substr(0, end + 2)).append("]]><![CDATA[");
        text.remove_prefix(end + 2);
    }
    return result.append(text).append("]]>");
}

std::string element(std::string_view name, const std::string& content) {
    if (content.empty()) {
        return {};
    }
    return std::string("      <").append(name).append(">").append(content).append("</").append(
               name) +
           ">\n";
}

std::string attribute(std::string_view name, const std::string& value) {
    return value.empty() ? std::string()
                         : std::string(" ").append(name).append("=\"") + escaped(value) + '"';
}

std::string itemText(const AppcastItem& item, bool declaresNamespace) {
    std::string text = "<item";
    if (declaresNamespace) {
        text += attribute("xmlns:sparkle", std::string(nameSpace));
    }
    text += ">\n" + element("title", escaped(item.title)) +
            element("pubDate", escaped(item.pubDate)) +
            element("sparkle:version", escaped(item.version)) +
            element("sparkle:shortVersionString", escaped(item.shortVersionString)) +
            element("sparkle:minimumSystemVersion", escaped(item.minimumSystemVersion)) +
            element("sparkle:channel", escaped(item.channel));
    if (item.phasedRolloutInterval) {
        text += element("sparkle:phasedRolloutInterval",
                        std::to_string(item.phasedRolloutInterval->count()));
    }
    if (item.isCritical) {
        text += "      <sparkle:criticalUpdate" + attribute("sparkle:version", item.criticalBelow) +
                "/>\n";
    }
    text += element("sparkle:releaseNotesLink", escaped(item.releaseNotesLink));
    if (!item.description.empty()) {
        text += element("description", characterData(item.description));
    }
    const auto& archive = item.enclosure;
    return text + "      <enclosure" + attribute("url", archive.url) +
           attribute("length", std::to_string(archive.length)) + attribute("type", archive.type) +
           attribute("sparkle:os", archive.os) +
           attribute("sparkle:edSignature", archive.edSignature) + "/>\n    </item>";
}

/// Where an item goes into a feed.
struct Place {
    XML_Parser parser = nullptr;
    int depth = 0;
    bool isInChannel = false;
    bool hasNamespace = false; // the prefix is declared around the items
    bool isOtherEncoding = false;
    bool isBeforeItem = false;
    long position = -1; // in bytes
};

constexpr int itemDepth = 3;

void startElement(void* user, const XML_Char* name, const XML_Char** attributes) {
    Place& place = *static_cast<Place*>(user);
    ++place.depth;
    if (place.depth == itemDepth - 1) {
        place.isInChannel = std::string_view(name) == "channel";
    }
    for (; place.depth < itemDepth && *attributes != nullptr; attributes += 2) {
        place.hasNamespace = place.hasNamespace || std::string_view(*attributes) == "xmlns:sparkle";
    }
    if (place.depth == itemDepth && place.isInChannel && place.position < 0 &&
        std::string_view(name) == "item") {
        place.position = XML_GetCurrentByteIndex(place.parser);
        place.isBeforeItem = true;
    }
}

void endElement(void* user, const XML_Char*) {
    Place& place = *static_cast<Place*>(user);
    // A channel that is a single tag has no inside.
    if (place.depth == itemDepth - 1 && place.isInChannel && place.position < 0 &&
        XML_GetCurrentByteCount(place.parser) > 0) {
        place.position = XML_GetCurrentByteIndex(place.parser);
    }
    --place.depth;
}

void declaration(void* user, const XML_Char*, const XML_Char* encoding, int) {
    Place& place = *static_cast<Place*>(user);
    if (encoding != nullptr) {
        std::string lower(encoding);
        for (char& c : lower) {
            c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
        }
        place.isOtherEncoding = lower != "utf-8";
    }
}

Place placeIn(std::string_view feed) {
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate(nullptr), &XML_ParserFree);
    Place place;
    if (parser == nullptr) {
        return place;
    }
    place.parser = parser.get();
    XML_SetUserData(parser.get(), &place);
    XML_SetElementHandler(parser.get(), startElement, endElement);
    XML_SetXmlDeclHandler(parser.get(), declaration);
    // That it can be read was seen before.
    if (XML_Parse(parser.get(), feed.data(), static_cast<int>(feed.size()), XML_TRUE) !=
        XML_STATUS_OK) {
        place.position = -1;
    }
    place.parser = nullptr;
    return place;
}

const char* reason(FeedFault fault) {
    switch (fault) {
    case FeedFault::tooLarge:
        return "is larger than the mebibyte that updaters read. Take old items out.";
    case FeedFault::documentType:
        return "has a document type declaration (<!DOCTYPE …>), which updaters refuse. Take it "
               "out.";
    case FeedFault::tooDeep:
        return "has elements within elements too deep for updaters.";
    case FeedFault::malformed:
        return "is not well-formed XML, or ends too early.";
    case FeedFault::notAFeed:
        return "is not an appcast: it needs <rss> with a <channel> in it.";
    }
    return "cannot be read.";
}

} // namespace

std::string emptyFeed(std::string_view product) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<rss version=\"2.0\" xmlns:sparkle=\"" +
           std::string(nameSpace) + "\">\n  <channel>\n    <title>" + escaped(product) +
           "</title>\n  </channel>\n</rss>\n";
}

Appcast appcastIn(std::string_view feed, const std::string& name) {
    auto result = platform::readAppcast(std::as_bytes(std::span(feed)));
    if (const auto* const fault = std::get_if<FeedFault>(&result)) {
        throw Failure(ExitCode::refused, name + ": " + reason(*fault));
    }
    return std::get<Appcast>(std::move(result));
}

std::string withItem(std::string_view feed, const AppcastItem& item, const std::string& name) {
    const Appcast before = appcastIn(feed, name);
    const Place place = placeIn(feed);
    if (feed.starts_with("\xff\xfe") || feed.starts_with("\xfe\xff") || place.isOtherEncoding) {
        throw Failure(ExitCode::refused, name + ": is not in UTF-8. Convert it first.");
    }
    if (place.position < 0) {
        throw Failure(ExitCode::refused, name + ": has no room for an item. Write the channel as "
                                                "<channel></channel>.");
    }
    std::string result(feed);
    const std::string text = itemText(item, !place.hasNamespace);
    // The end tag's own indentation stands before it already.
    result.insert(static_cast<std::size_t>(place.position),
                  place.isBeforeItem ? text + "\n    " : "  " + text + "\n  ");

    auto readBack = platform::readAppcast(std::as_bytes(std::span(std::string_view(result))));
    const auto* const after = std::get_if<Appcast>(&readBack);
    if (const auto* const fault = std::get_if<FeedFault>(&readBack)) {
        throw Failure(ExitCode::refused,
                      std::string("With this item the feed would be refused: it ") +
                          reason(*fault) +
                          (*fault == FeedFault::malformed
                               ? " Is there something in title or notes that is not UTF-8?"
                               : ""));
    }
    const bool isExact = after->items.size() == before.items.size() + 1 &&
                         after->ignoredItems == before.ignoredItems;
    const AppcastItem* const added = isExact ? &after->items.front() : nullptr;
    if (added == nullptr || added->version != item.version || added->channel != item.channel ||
        added->minimumSystemVersion != item.minimumSystemVersion ||
        added->pubDate != item.pubDate || added->releaseNotesLink != item.releaseNotesLink ||
        added->phasedRolloutInterval != item.phasedRolloutInterval ||
        added->isCritical != item.isCritical || added->criticalBelow != item.criticalBelow ||
        added->enclosure.url != item.enclosure.url ||
        added->enclosure.length != item.enclosure.length ||
        added->enclosure.os != item.enclosure.os ||
        added->enclosure.edSignature != item.enclosure.edSignature) {
        throw Failure(ExitCode::refused, "Updaters would not read the new item as it is meant.");
    }
    return result;
}

} // namespace publisher
