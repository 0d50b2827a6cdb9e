#pragma once

#include "platform/updates/feed/appcast_reader.hpp"

#include <string>
#include <string_view>

namespace publisher {

/// A feed without items.
[[nodiscard]] std::string emptyFeed(std::string_view product);

/// The items of a feed; fails with a reason when the updater would not read it. `name` is what the
/// feed is called in the message.
[[nodiscard]] platform::Appcast appcastIn(std::string_view feed, const std::string& name);

/// The feed with one more item, before the ones it has. Every other byte stays as it was. Fails
/// when the updater would not read the result as exactly that.
[[nodiscard]] std::string withItem(std::string_view feed, const platform::AppcastItem& item,
                                   const std::string& name);

} // namespace publisher
