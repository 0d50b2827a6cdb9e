#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

// For any thread.
namespace updates {

/// Reads a date as feeds have it: "Tue, 04 Mar 2025 10:30:00 +0100". The weekday and the seconds
/// may be absent; the zone is an offset, GMT, UTC, UT or Z. Years from 1970 to 2999.
[[nodiscard]] std::optional<std::chrono::sys_seconds> parsePublicationDate(std::string_view text);

/// Writes such a date, in universal time; in English whatever the locale.
[[nodiscard]] std::string publicationDate(std::chrono::sys_seconds time);

} // namespace updates
