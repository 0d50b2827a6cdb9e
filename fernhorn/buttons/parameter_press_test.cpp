#include "fernhorn/buttons/parameter_press.hpp"
#include "fernhorn/testing/parameter_fixture.hpp"

#include <gtest/gtest.h>

#include <functional>

namespace fernhorn {
namespace {

class ParameterPressTest : public WithParameter {
  protected:
    void makeParameter(float value) { use({.range = {0, 3}, .defaultValue = value}); }
};

TEST_F(ParameterPressTest, WritesWhatItsEditSaysBetweenOneTouchAndOneRelease) {
    const struct {
        PressEdit edit;
        float before;
        PressStep end;
        AutomationEvents events;
        float after;
    } cases[] = {
        {PressEdit::select(2), 1, PressStep::clicked, {{1, 1}, {0, 2}, {2, 2}}, 2},
        {PressEdit::select(2), 1, PressStep::cancelled, {{1, 1}, {2, 1}}, 1},
        {PressEdit::toggle(), 0, PressStep::clicked, {{1, 0}, {0, 1}, {2, 1}}, 1},
        {PressEdit::toggle(), 1, PressStep::clicked, {{1, 1}, {0, 0}, {2, 0}}, 0},
        {PressEdit::toggle(), 0.3F, PressStep::clicked, {{1, 0.3F}, {0, 0}, {2, 0}}, 0},
        {PressEdit::toggle(), 0.3F, PressStep::cancelled, {{1, 0.3F}, {2, 0.3F}}, 0.3F},
        {PressEdit::hold(), 0, PressStep::clicked, {{1, 0}, {0, 1}, {0, 0}, {2, 0}}, 0},
        {PressEdit::hold(), 1, PressStep::cancelled, {{1, 0}, {0, 1}, {0, 0}, {2, 0}}, 0},
        {PressEdit::selectAtOnce(2), 1, PressStep::clicked, {{0, 2}}, 2},
        {PressEdit::selectAtOnce(2), 1, PressStep::cancelled, {}, 1},
    };
    for (const bool drains : {true, false}) {
        for (const auto& [edit, before, end, expected, after] : cases) {
            makeParameter(before);
            ParameterPress press(parameter, edit);
            press.follow(PressStep::began);
            if (drains) {
                queue.drain();
                EXPECT_EQ(parameter->value(), edit.valueAtBegin().value_or(before));
            }
            EXPECT_FALSE(parameter->isBeingInteractivelyEdited());
            press.follow(end);
            queue.drain();
            EXPECT_EQ(events, expected);
            EXPECT_EQ(parameter->value(), after);
        }
    }
}

TEST_F(ParameterPressTest, ChoosingTheValueAgainOnlyTouches) {
    makeParameter(2);
    ParameterPress press(parameter, PressEdit::select(2));
    press.follow(PressStep::began);
    queue.drain();
    press.follow(PressStep::clicked);
    EXPECT_EQ(events, (AutomationEvents{{1, 2}, {2, 2}}));
}

TEST_F(ParameterPressTest, TwoClicksInOneBurstOfEventsAreTwo) {
    makeParameter(0);
    ParameterPress press(parameter, PressEdit::toggle());
    for (int i = 0; i < 3; ++i) {
        press.follow(PressStep::began);
        press.follow(PressStep::clicked);
    }
    queue.drain();
    EXPECT_EQ(parameter->value(), 1);
}

// Whoever hears of an event may end the press, begin another or take the button away.
TEST_F(ParameterPressTest, IsClosedWhateverHappensWhileItIsToldOf) {
    using Press = std::unique_ptr<ParameterPress>;
    const struct {
        std::function<void(Press&)> intervene;
        bool beginsAnother = false;
    } interventions[] = {
        {[](Press& press) { press.reset(); }},
        {[](Press& press) { press->follow(PressStep::cancelled); }},
        {[](Press& press) { press->follow(PressStep::clicked); }},
        {[](Press& press) {
             press->follow(PressStep::cancelled);
             press->follow(PressStep::began);
         },
         true},
    };
    for (const PressEdit edit : {PressEdit::select(2), PressEdit::toggle(), PressEdit::hold()}) {
        for (const auto& [intervene, beginsAnother] : interventions) {
            for (int at = 0; at < 4; ++at) {
                makeParameter(1);
                auto press = std::make_unique<ParameterPress>(parameter, edit);
                int countdown = at;
                parameter->auParameter()->addParameterAutomationObserver(
                    [&, &act = intervene](const auto&) {
                        if (press != nullptr && countdown-- == 0) {
                            act(press);
                        }
                    });
                const auto count = [&](int type) {
                    return std::ranges::count(events, type, &std::pair<int, float>::first);
                };
                press->follow(PressStep::began);
                if (countdown < 0 && !beginsAnother) {
                    EXPECT_EQ(count(1), count(2)) << at; // at once, not only in the end
                } else if (press != nullptr) {
                    press->follow(PressStep::clicked);
                }
                press.reset();
                EXPECT_GE(count(1), 1);
                EXPECT_EQ(count(1), count(2)) << at;
                queue.drain();
            }
        }
    }
}

TEST(ParameterPressDeathTest, NeedsAParameter) {
    EXPECT_DEATH(ParameterPress(nullptr, PressEdit::toggle()),
                 "Fatal error: A button for a parameter has none");
}

} // namespace
} // namespace fernhorn
