#pragma once

#include "updates/feed/appcast_item.hpp"

#include <cstddef>
#include <optional>
#include <span>
#include <variant>
#include <vector>

namespace updates {

/// Why a document was refused as a whole.
enum class FeedFault {
    // Of a feed that somebody has to vouch for; see signed_feed.hpp.
    notSigned,      ///< there is no statement beside it, or a text that is none
    signatureWrong, ///< of another feed, or made with another key
    superseded,     ///< a newer one was seen before
    expired,        ///< by now there should be a newer one

    tooLarge,     ///< more than `largestFeed` bytes
    documentType, ///< it has a document type declaration, the door to entities
    tooDeep,      ///< elements within elements, more than `deepestFeed` of them
    malformed,    ///< not XML, or only a part of it
    notAFeed,     ///< some other document, such as the sign-in page of a network
};

inline constexpr std::size_t largestFeed = std::size_t{1} << 20; ///< bytes
inline constexpr int deepestFeed = 64;                           ///< elements, the root included

/// What a feed says.
struct Appcast {
    /// In document order. An item with several enclosures stands here once for each of them.
    std::vector<AppcastItem> items;
    /// Those that were left out: without a version or an enclosure, or contradicting themselves.
    std::size_t ignoredItems = 0;
    /// For who writes into it: where the first item begins or, without one, the channel's inside
    /// ends, in bytes of the document; nothing for a channel without an inside.
    std::optional<std::size_t> firstByte = {};
    bool declaresPrefix = false; ///< around the items it is said what "sparkle" stands for
};

/// Reads an appcast: an RSS document whose own elements and attributes carry the prefix "sparkle",
/// whatever namespace that stands for. Version and short version may be elements of the item or
/// attributes of its enclosure. Unknown elements do not count. Time and memory grow with the
/// document's size and are bounded by `largestFeed`. Any thread.
[[nodiscard]] std::variant<Appcast, FeedFault> readAppcast(std::span<const std::byte> document);

} // namespace updates
