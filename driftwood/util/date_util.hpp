#pragma once

#include "core/clock.hpp"

#include <chrono>
#include <optional>

namespace driftwood {

/// How long ago something happened, or how far it lies ahead: by the calendar's clock, so that the
/// date may be that of a file, of a feed, or of yesterday. Any thread.
struct DateUtil {
    using Date = std::chrono::system_clock::time_point;

    /// Whether the distance of `passedSince` from `now` is less, or more, than `interval`; without
    /// a date the answer is `ifDateNil`. An exact match is neither.
    [[nodiscard]] static bool hasLessThan(core::Seconds interval, std::optional<Date> passedSince,
                                          bool ifDateNil,
                                          Date now = std::chrono::system_clock::now()) {
        return passedSince ? distance(*passedSince, now) < interval : ifDateNil;
    }
    [[nodiscard]] static bool hasMoreThan(core::Seconds interval, std::optional<Date> passedSince,
                                          bool ifDateNil,
                                          Date now = std::chrono::system_clock::now()) {
        return passedSince ? distance(*passedSince, now) > interval : ifDateNil;
    }

  private:
    /// In seconds first: the difference of two far dates is more than the clock's own unit holds.
    static core::Seconds distance(Date date, Date now) {
        return std::chrono::abs(core::Seconds(date.time_since_epoch()) -
                                core::Seconds(now.time_since_epoch()));
    }
};

/// So many units as seconds, as in `time_units::minutes(1.5)`.
namespace time_units {

[[nodiscard]] constexpr core::Seconds seconds(double count) {
    return core::Seconds(count);
}
[[nodiscard]] constexpr core::Seconds milliseconds(double count) {
    return seconds(count / 1000);
}
[[nodiscard]] constexpr core::Seconds minutes(double count) {
    return seconds(count * 60);
}
[[nodiscard]] constexpr core::Seconds hours(double count) {
    return minutes(count * 60);
}
[[nodiscard]] constexpr core::Seconds days(double count) {
    return hours(count * 24);
}
[[nodiscard]] constexpr core::Seconds weeks(double count) {
    return days(count * 7);
}
[[nodiscard]] constexpr core::Seconds second(double count) {
    return seconds(count);
}
[[nodiscard]] constexpr core::Seconds minute(double count) {
    return minutes(count);
}
[[nodiscard]] constexpr core::Seconds hour(double count) {
    return hours(count);
}
[[nodiscard]] constexpr core::Seconds day(double count) {
    return days(count);
}
[[nodiscard]] constexpr core::Seconds week(double count) {
    return weeks(count);
}

} // namespace time_units

} // namespace driftwood
