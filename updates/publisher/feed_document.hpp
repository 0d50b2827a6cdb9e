#pragma once

#include "updates/feed/signed_feed.hpp"
#include "updates/publisher/signing_key.hpp"

#include <string>
#include <string_view>

// The publisher's program has one thread.
namespace updates {

/// A feed without items.
[[nodiscard]] std::string emptyFeed(std::string_view product);

/// The items of a feed; fails with a reason when the updater would not read it. `name` is what the
/// feed is called in the message.
[[nodiscard]] updates::Appcast appcastIn(std::string_view feed, const std::string& name);

/// What vouches for a feed from now on: with a serial after that of its statement until now, if it
/// has one, and not below the time, so that it grows even where a statement was lost.
[[nodiscard]] updates::FeedStatement
signedStatement(std::string_view feed, std::string_view statementNow, const SigningKey& key,
                std::chrono::sys_seconds now, std::chrono::days valid);

/// Fails with a reason unless the key has signed the feed as it is, and it has not expired by
/// `now`; without a time it may have.
void requireSigned(std::string_view feed, std::string_view statement, const std::string& publicKey,
                   const std::string& name, std::chrono::sys_seconds now = {});

/// The feed with one more item, before the ones it has. Every other byte stays as it was. Fails
/// when the updater would not read the result as exactly that.
[[nodiscard]] std::string withItem(std::string_view feed, const updates::AppcastItem& item,
                                   const std::string& name);

} // namespace updates
