#include "updates/publisher/feed_document.hpp"

#include "updates/publisher/failure.hpp"

#include <algorithm>

namespace updates {
namespace {

using updates::Appcast;
using updates::AppcastItem;
using updates::FeedFault;

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

const char* reason(FeedFault fault) {
    switch (fault) {
    case FeedFault::notSigned:
        return "is not signed: there is no statement beside it.";
    case FeedFault::signatureWrong:
        return "was changed since it was signed, or signed with another key.";
    case FeedFault::superseded:
        return "is older than one that was published before.";
    case FeedFault::expired:
        return "has expired: people's copies refuse it. Renew it with \"sign\".";
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
    auto result = updates::readAppcast(std::as_bytes(std::span(feed)));
    if (const auto* const fault = std::get_if<FeedFault>(&result)) {
        throw Failure(ExitCode::refused, name + ": " + reason(*fault));
    }
    return std::get<Appcast>(std::move(result));
}

FeedStatement signedStatement(std::string_view feed, std::string_view statementNow,
                              const SigningKey& key, std::chrono::sys_seconds now,
                              std::chrono::days valid) {
    const auto last = readFeedStatement(statementNow);
    const auto time = static_cast<std::uint64_t>(now.time_since_epoch().count());
    FeedStatement statement{std::max(last ? last->serial + 1 : 0, time), now + valid, {}};
    const std::string bytes = signedBytes(statement, std::as_bytes(std::span(feed)));
    statement.signature = key.sign(std::as_bytes(std::span(bytes)));
    return statement;
}

void requireSigned(std::string_view feed, std::string_view statement, const std::string& publicKey,
                   const std::string& name, std::chrono::sys_seconds now) {
    const auto read =
        readSignedAppcast(std::as_bytes(std::span(feed)), statement, {publicKey, 0, now});
    if (const auto* const fault = std::get_if<FeedFault>(&read)) {
        throw Failure(ExitCode::refused,
                      name + ": " + reason(*fault) +
                          (*fault <= FeedFault::signatureWrong
                               ? " Look at what it says; then \"sign\" vouches for it."
                               : ""));
    }
}

std::string withItem(std::string_view feed, const AppcastItem& item, const std::string& name) {
    const Appcast before = appcastIn(feed, name);
    if (!before.firstByte) {
        throw Failure(ExitCode::refused, name + ": has no room for an item. Write the channel as "
                                                "<channel></channel>.");
    }
    const std::size_t items = before.items.size() + before.ignoredItems;
    std::string result(feed);
    const std::string text = itemText(item, !before.declaresPrefix);
    // The end tag's own indentation stands before it already.
    result.insert(*before.firstByte, items > 0 ? text + "\n    " : "  " + text + "\n  ");

    const auto readBack = readAppcast(std::as_bytes(std::span(std::string_view(result))));
    if (const auto* const fault = std::get_if<FeedFault>(&readBack)) {
        throw Failure(ExitCode::refused,
                      std::string("With this item the feed would be refused: it ") +
                          reason(*fault) +
                          (*fault == FeedFault::malformed
                               ? " Is there something in title or notes that is not UTF-8?"
                               : ""));
    }
    const Appcast& after = std::get<Appcast>(readBack);
    const bool isOneMore = after.items.size() == before.items.size() + 1;
    AppcastItem expected = item;
    if (isOneMore) {
        expected.description = after.items.front().description; // line ends may differ
    }
    if (!isOneMore || after.items.front() != expected) {
        throw Failure(ExitCode::refused,
                      name +
                          ": updaters would not read the new item as it is meant. Is the feed in "
                          "UTF-8, and no space at the ends of its texts?");
    }
    return result;
}

} // namespace updates
