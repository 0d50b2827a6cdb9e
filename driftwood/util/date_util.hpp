#pragma once

#include "core/clock.hpp"

#include <optional>

namespace driftwood {

/// How long ago something happened, or how far it lies ahead. Any thread.
struct DateUtil {
    /// Whether the distance of `date` from now is less, or more, than `interval`; without a date
    /// the answer is `ifDateNil`. An exact match is neither.
    [[nodiscard]] static bool hasLessThan(core::Seconds interval,
                                          std::optional<core::Instant> passedSince, bool ifDateNil,
                                          const core::Clock& clock = core::Clock::system()) {
        return passedSince ? distance(*passedSince, clock) < interval : ifDateNil;
    }
    [[nodiscard]] static bool hasMoreThan(core::Seconds interval,
                                          std::optional<core::Instant> passedSince, bool ifDateNil,
                                          const core::Clock& clock = core::Clock::system()) {
        return passedSince ? distance(*passedSince, clock) > interval : ifDateNil;
    }

  private:
    static core::Seconds distance(core::Instant date, const core::Clock& clock) {
        return std::chrono::abs(date - clock.now());
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
