#include "platform/controls/press_tracker.hpp"

#include <gtest/gtest.h>

namespace platform {
namespace {

constexpr core::Rect bounds{{0, 0}, {10, 10}};
constexpr core::Point in{5, 5};
constexpr core::Point out{5, 10}; // the far edge is outside

/// Plays a press: d(own), m(ove) in, o(ut), h(eard not: a move with the button up), u(p), U(p
/// outside), k and l two keys down, K and L up, c(ancel). Notes what each step gives: '.' nothing,
/// '+' begun, '~' crossed, '!' a click, 'x' cancelled.
std::string play(std::string_view steps) {
    PressTracker tracker;
    std::string results;
    for (const char step : steps) {
        const PressStep result = step == 'd'   ? tracker.press(in, bounds)
                                 : step == 'D' ? tracker.press(out, bounds)
                                 : step == 'm' ? tracker.move(in, bounds)
                                 : step == 'o' ? tracker.move(out, bounds)
                                 : step == 'h' ? tracker.move(in, bounds, false)
                                 : step == 'u' ? tracker.release(in, bounds)
                                 : step == 'U' ? tracker.release(out, bounds)
                                 : step == 'k' ? tracker.pressKey(1)
                                 : step == 'K' ? tracker.releaseKey(1)
                                 : step == 'l' ? tracker.pressKey(2)
                                 : step == 'L' ? tracker.releaseKey(2)
                                               : tracker.cancel();
        results += ".+~!x"[static_cast<int>(result)];
    }
    return results + (tracker.isInside() ? "…" : tracker.isTracking() ? "(…)" : "");
}

TEST(PressTracker, FollowsPresses) {
    const struct {
        const char* steps;
        const char* results;
    } cases[] = {
        {"du", "+!"},     {"dmmu", "+..!"}, {"doU", "+~x"},   {"dU", "+x"},     {"domu", "+~~!"},
        {"dou", "+~!"},   {"dcu", "+x."},   {"docm", "+~x."}, {"mou", "..."},   {"D", "."},
        {"dd", "+.…"},    {"do", "+~(…)"},  {"dh", "+x"},     {"dohu", "+~x."}, {"h", "."},
        {"kK", "+!"},     {"kc", "+x"},     {"kcK", "+x."},   {"kk", "+.…"},    {"K", "."},
        {"kdK", "+.!"},   {"kuK", "+.!"},   {"khK", "+.!"},   {"dkKu", "+..!"}, {"klLK", "+..!"},
        {"dudu", "+!+!"},
    };
    for (const auto& [steps, results] : cases) {
        EXPECT_EQ(play(steps), results) << steps;
    }
}

} // namespace
} // namespace platform
