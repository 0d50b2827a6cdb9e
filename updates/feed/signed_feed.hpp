#pragma once

#include "updates/feed/appcast_reader.hpp"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

// What vouches for a feed as a whole: a small document beside it, which says how new the feed is
// and how long it counts, and is signed together with every byte of it. So nobody but the maker has
// a word in what is offered to whom, an old feed cannot be served in place of a newer one, and one
// that is held back for long is seen to be. All functions: any thread.

namespace updates {

/// The document beside a feed.
struct FeedStatement {
    std::uint64_t serial = 0;         ///< grows with every signature; 1 to `largestFeedSerial`
    std::chrono::sys_seconds expires; ///< from then on the feed says nothing any more
    std::string signature;            ///< Ed25519 over `signedBytes`, base64

    bool operator==(const FeedStatement&) const = default;
};

/// What comes behind a feed's address, or file name, in that of its statement.
inline constexpr std::string_view feedStatementSuffix = ".sig";
inline constexpr std::size_t largestFeedStatement = 512; ///< bytes
inline constexpr std::uint64_t largestFeedSerial = (std::uint64_t{1} << 53) - 1;

[[nodiscard]] std::string feedStatementText(const FeedStatement& statement);
/// Nothing unless the text is exactly the one that `feedStatementText` writes.
[[nodiscard]] std::optional<FeedStatement> readFeedStatement(std::string_view text);

/// What a statement's signature is over. No archive begins like this, so no archive's signature is
/// ever one of a feed, nor the other way round.
[[nodiscard]] std::string signedBytes(const FeedStatement& statement,
                                      std::span<const std::byte> feed);

/// Which feeds a program believes.
struct FeedTrust {
    std::string publicKey;        ///< Ed25519, base64
    std::uint64_t lastSerial = 0; ///< the highest that was seen; 0: none
    std::chrono::system_clock::time_point now;
};

/// A feed whose signature, serial and expiry have been found to be good.
struct SignedAppcast {
    Appcast appcast;
    std::uint64_t serial = 0; ///< to be kept as `lastSerial`
};

/// Reads a feed that the maker vouches for. Nothing of it is parsed before its signature, its
/// serial and its expiry are found to be good; these faults come before all others.
[[nodiscard]] std::variant<SignedAppcast, FeedFault>
readSignedAppcast(std::span<const std::byte> feed, std::string_view statement,
                  const FeedTrust& trust);

} // namespace updates
