#include "updates/feed/publication_date.hpp"

#include <algorithm>
#include <ctime>
#include <locale.h>

namespace updates {
namespace {

using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::sys_seconds;

/// Dates in feeds are in English, whatever the user's language.
locale_t english() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

/// How far the zone is ahead of universal time: four digits with a sign, or a name for none.
std::optional<minutes> zoneOffset(std::string_view zone) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (zone == "GMT" || zone == "UTC" || zone == "UT" || zone == "Z") {
        return minutes(0);
    }
    if (zone.size() != 5 || (zone.front() != '+' && zone.front() != '-') ||
        !std::ranges::all_of(zone.substr(1), isDigit)) {
        return std::nullopt;
    }
    const auto two = [zone](std::size_t at) { return (zone[at] - '0') * 10 + zone[at + 1] - '0'; };
    const minutes offset = hours(two(1)) + minutes(two(3));
    if (offset >= hours(15) || two(3) > 59) {
        return std::nullopt;
    }
    return zone.front() == '-' ? -offset : offset;
}

} // namespace

std::optional<sys_seconds> parsePublicationDate(std::string_view text) {
    if (const auto comma = text.find(','); comma != std::string_view::npos) {
        const auto isLetter = [](char c) { return (c | 32) >= 'a' && (c | 32) <= 'z'; };
        if (!std::ranges::all_of(text.substr(0, comma), isLetter)) {
            return std::nullopt;
        }
        text.remove_prefix(comma + 1); // which day of the week it was says nothing new
    }
    const std::string date(text);
    std::tm time{};
    const char* rest = strptime_l(date.c_str(), "%d %b %Y %H:%M", &time, english());
    if (rest != nullptr && *rest == ':') {
        rest = strptime_l(rest, ":%S", &time, english());
    }
    const std::string_view zone(rest == nullptr ? "" : rest);
    const auto first = std::min(zone.find_first_not_of(' '), zone.size());
    const auto offset = zoneOffset(zone.substr(first, zone.find_last_not_of(' ') + 1 - first));
    const std::chrono::year_month_day day{
        std::chrono::year(time.tm_year + 1900),
        std::chrono::month(static_cast<unsigned>(time.tm_mon) + 1),
        std::chrono::day(static_cast<unsigned>(time.tm_mday))};
    if (!offset || !day.ok() || day.year() < std::chrono::year(1970) ||
        day.year() > std::chrono::year(2999)) {
        return std::nullopt;
    }
    return sys_days(day) + hours(time.tm_hour) + minutes(time.tm_min) + seconds(time.tm_sec) -
           *offset;
}

std::string publicationDate(sys_seconds time) {
    const std::time_t count = time.time_since_epoch().count();
    std::tm parts{};
    gmtime_r(&count, &parts);
    char text[64];
    return {text, strftime_l(text, sizeof text, "%a, %d %b %Y %H:%M:%S +0000", &parts, english())};
}

} // namespace updates
