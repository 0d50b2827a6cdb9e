#include "platform/updates/feed/publication_date.hpp"

#include <algorithm>
#include <array>
#include <cstdio>

namespace platform {
namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::sys_seconds;

constexpr std::array<std::string_view, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<std::string_view, 7> weekdays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

/// Takes words and numbers from the beginning of a text.
class Scanner {
  public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    [[nodiscard]] bool take(char c) {
        if (!rest_.starts_with(c)) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    void skipSpaces() {
        while (take(' ')) {
        }
    }

    /// What stands before the next space, comma or colon.
    [[nodiscard]] std::string_view word() {
        skipSpaces();
        const auto taken = rest_.substr(0, rest_.find_first_of(" ,:"));
        rest_.remove_prefix(taken.size());
        return taken;
    }

    /// A number with that many digits, at most `largest`.
    [[nodiscard]] std::optional<int> number(std::size_t fewest, std::size_t most, int largest) {
        const auto text = word();
        int value = 0;
        for (const char c : text) {
            if (c < '0' || c > '9' || text.size() > most) {
                return std::nullopt;
            }
            value = value * 10 + (c - '0');
        }
        return text.size() >= fewest && value <= largest ? std::optional(value) : std::nullopt;
    }

    [[nodiscard]] bool isAtEnd() const { return rest_.empty(); }

  private:
    std::string_view rest_;
};

/// How far the zone is ahead of universal time.
std::optional<minutes> zoneOffset(std::string_view zone) {
    if (zone == "GMT" || zone == "UTC" || zone == "UT" || zone == "Z") {
        return minutes(0);
    }
    if (zone.size() != 5 || (zone.front() != '+' && zone.front() != '-')) {
        return std::nullopt;
    }
    const auto hour = Scanner(zone.substr(1, 2)).number(2, 2, 14);
    const auto minute = Scanner(zone.substr(3, 2)).number(2, 2, 59);
    if (!hour || !minute) {
        return std::nullopt;
    }
    const minutes offset = hours(*hour) + minutes(*minute);
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
    Scanner scanner(text);
    const auto day = scanner.number(1, 2, 31);
    const auto month = std::ranges::find(months, scanner.word());
    const auto year = scanner.number(4, 4, 2999);
    const auto hour = scanner.number(2, 2, 23);
    const bool hasMinutes = scanner.take(':');
    const auto minute = scanner.number(2, 2, 59);
    const auto second = scanner.take(':') ? scanner.number(2, 2, 60) : std::optional(0);
    const auto offset = zoneOffset(scanner.word());
    scanner.skipSpaces();
    if (!day || month == months.end() || !year || *year < 1970 || !hour || !hasMinutes || !minute ||
        !second || !offset || !scanner.isAtEnd()) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date{
        std::chrono::year(*year),
        std::chrono::month(static_cast<unsigned>(month - months.begin()) + 1),
        std::chrono::day(static_cast<unsigned>(*day))};
    if (!date.ok()) {
        return std::nullopt;
    }
    return sys_days(date) + hours(*hour) + minutes(*minute) + seconds(*second) - *offset;
}

std::string publicationDate(sys_seconds time) {
    const auto midnight = std::chrono::floor<days>(time);
    const std::chrono::year_month_day date(midnight);
    const std::chrono::hh_mm_ss clock(time - midnight);
    const std::string_view weekday = weekdays[std::chrono::weekday(midnight).c_encoding()];
    const std::string_view month = months[static_cast<unsigned>(date.month()) - 1];
    char text[64];
    const int size = std::snprintf(
        text, sizeof text, "%.3s, %02u %.3s %04d %02d:%02d:%02d +0000", weekday.data(),
        static_cast<unsigned>(date.day()), month.data(), static_cast<int>(date.year()),
        static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
        static_cast<int>(clock.seconds().count()));
    return {text, static_cast<std::size_t>(size)};
}

} // namespace platform
