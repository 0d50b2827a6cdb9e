#include "platform/ui/cells/press_tracker.hpp"

#include <gtest/gtest.h>

namespace platform {
namespace {

constexpr core::Rect bounds{{0, 0}, {10, 10}};
constexpr core::Point in{5, 5};
constexpr core::Point out{5, 10}; // the far edge is outside

/// Plays a press: d(own), m(ove) in, o(ut), u(p), U(p outside), k(ey down), K(ey up), c(ancel), and
/// notes what each step gives: '.' nothing, '+' and '-' pressed or not, '!' a click.
std::string play(std::string_view steps) {
    PressTracker tracker;
    std::string results;
    for (const char step : steps) {
        using Result = PressTracker::Result;
        const Result result = step == 'd'   ? tracker.press(in, bounds)
                              : step == 'D' ? tracker.press(out, bounds)
                              : step == 'm' ? tracker.move(in, bounds)
                              : step == 'o' ? tracker.move(out, bounds)
                              : step == 'u' ? tracker.release(in, bounds)
                              : step == 'U' ? tracker.release(out, bounds)
                              : step == 'k' ? tracker.pressKey()
                              : step == 'K' ? tracker.releaseKey()
                                            : tracker.cancel();
        results += result == Result::nothing   ? '.'
                   : result == Result::clicked ? '!'
                   : tracker.isPressed()       ? '+'
                                               : '-';
    }
    return results + (tracker.isTracking() ? "…" : "");
}

TEST(PressTracker, FollowsPresses) {
    const struct {
        const char* steps;
        const char* results;
    } cases[] = {
        {"du", "+!"},     {"dmmu", "+..!"}, {"doU", "+-."},   {"dU", "+-"},     {"domu", "+-+!"},
        {"dou", "+-!"},   {"dcu", "+-."},   {"docm", "+-.."}, {"mou", "..."},   {"D", "."},
        {"dd", "+.…"},    {"kK", "+!"},     {"kc", "+-"},     {"kcK", "+-."},   {"kk", "+.…"},
        {"K", "."},       {"kdK", "+.!"},   {"kuK", "+.!"},   {"dkKu", "+..!"}, {"doo", "+-.…"},
        {"dudu", "+!+!"},
    };
    for (const auto& [steps, results] : cases) {
        EXPECT_EQ(play(steps), results) << steps;
    }
}

} // namespace
} // namespace platform
