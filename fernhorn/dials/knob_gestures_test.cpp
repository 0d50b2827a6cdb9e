#include "fernhorn/dials/knob_gestures.hpp"
#include "fernhorn/testing/parameter_fixture.hpp"

#include <gmock/gmock.h>

namespace fernhorn {
namespace {

using testing::ElementsAre;
using testing::FloatNear;
using testing::IsEmpty;
using testing::Pair;
using Units = platform::AudioUnitParameterUnit;

constexpr KnobFeel chaos{6, 0.005F};

class KnobGestures : public WithParameter {
  protected:
    void useIndexed(float value) {
        use({.units = Units::indexed, .range = {0, 3}, .defaultValue = value});
    }
};

TEST_F(KnobGestures, ADragMovesByTheTravelAfterItsBeginning) {
    use({.defaultValue = 0.5F});
    KnobDrag drag(parameter, chaos);
    drag.press({20, 100}, 1, false);
    drag.move({23, 96}, false); // 5 points
    EXPECT_THAT(events, IsEmpty());
    EXPECT_FALSE(drag.isDragging());
    drag.move({20, 90}, false);
    EXPECT_EQ(drag.lastDragValue(), 90);
    EXPECT_EQ(drag.continuousDragValue(), 0.5F);
    EXPECT_TRUE(parameter->isBeingInteractivelyEdited());
    drag.move({300, 80}, false); // sideways counts for nothing
    drag.release({300, 80});
    EXPECT_THAT(events, ElementsAre(Pair(1, 0.5F), Pair(0, FloatNear(0.55F, 1e-6F)),
                                    Pair(2, FloatNear(0.55F, 1e-6F))));
    EXPECT_FALSE(drag.lastDragValue() || drag.continuousDragValue() || drag.isPressed());
    EXPECT_FALSE(parameter->isBeingInteractivelyEdited());
}

TEST_F(KnobGestures, ADragGoesWithThePointer) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    struct Move {
        double y;
        float value;
        bool isFine = false;
        std::optional<float> continuous = {};
    };
    const struct {
        const char* what;
        TestParameter parameter;
        std::vector<Move> moves; // from 6 points up, where the drag begins
    } cases[] = {
        {"stops at the ends and turns back at once",
         {.defaultValue = 0.5F},
         {{-1000, 1}, {-980, 0.9F}, {5000, 0}, {4980, 0.1F}, {nan, 0}}},
        {"an indexed one turns at half the way, of 200 points over 0…3",
         {.units = Units::indexed, .range = {0, 3}},
         {{-39, 0, false, 0.495F}, {-40, 1, false, 0.51F}}},
        {"Shift is finer from where the drag stands, and the key alone moves nothing",
         {},
         {{-106, 0.5F}, {-106, 0.5F, true}, {-126, 0.51F, true}, {-126, 0.51F}, {-128, 0.52F}}},
    };
    for (const auto& [what, with, moves] : cases) {
        use(with);
        KnobDrag drag(parameter, chaos);
        drag.press({0, 0}, 1, false);
        drag.move({0, -6}, false);
        for (const auto& [y, expected, isFine, continuous] : moves) {
            drag.move({0, y}, isFine);
            EXPECT_NEAR(value(), expected, 1e-6) << what << " at " << y;
            EXPECT_NEAR(*drag.continuousDragValue(), continuous.value_or(expected), 1e-5) << what;
        }
    }
}

TEST_F(KnobGestures, DoubleClickAndAltClickResetInOneChange) {
    const struct {
        int clickCount;
        bool isAltHeld;
        double travel;
        bool resets;
    } cases[] = {
        {1, false, 0, false},
        {2, false, 0, true},
        {1, true, 2, true},
        {3, false, 0, false},
        {2, false, 20, false}, // another drag, of which only the release was
                               // heard
        {1, true, 20, false},
    };
    for (const auto& [clickCount, isAltHeld, travel, resets] : cases) {
        use({.defaultValue = 0.25F});
        parameter->setValue(0.75F, fromUnit, change);
        queue.drain();
        KnobDrag drag(parameter, chaos);
        drag.press({0, 0}, clickCount, isAltHeld);
        drag.press({0, 0}, 1, false); // another button
        drag.release({0, travel});
        if (resets) {
            EXPECT_THAT(events, ElementsAre(Pair(0, 0.25F))) << clickCount << isAltHeld;
        } else {
            EXPECT_THAT(events, IsEmpty()) << clickCount << isAltHeld << travel;
        }
    }
    // A press that drags at once is a click, too, when it does not travel.
    KnobDrag drag(parameter, {0, 0.01F});
    drag.press({0, 0}, 2, false);
    EXPECT_TRUE(drag.isDragging());
    drag.release({0, 1});
    EXPECT_THAT(events, ElementsAre(Pair(1, 0.75F), Pair(2, 0.75F), Pair(0, 0.25F)));
}

TEST_F(KnobGestures, ACancelledDragIsReleasedAndStaysDead) {
    use({.defaultValue = 0.5F});
    {
        KnobDrag drag(parameter, chaos);
        drag.press({0, 0}, 1, false);
        drag.move({0, -10}, false);
        drag.cancel();
        drag.move({0, -30}, false);
        drag.release({0, -30});
        EXPECT_THAT(events, ElementsAre(Pair(1, 0.5F), Pair(2, 0.5F)));
        drag.press({0, 0}, 1, false);
        drag.move({0, -10}, false);
    } // destroyed
    EXPECT_THAT(events, ElementsAre(Pair(1, 0.5F), Pair(2, 0.5F), Pair(1, 0.5F), Pair(2, 0.5F)));
}

TEST_F(KnobGestures, WhoeverHearsOfAnEditMayDestroyIt) {
    // While it opens, while it changes, and while it closes.
    for (const int fatalEvent : {1, 0, 2}) {
        use({.defaultValue = 0.5F});
        auto drag = std::make_unique<KnobDrag>(parameter, chaos);
        parameter->auParameter()->addParameterAutomationObserver([&](const auto& event) {
            if (static_cast<int>(event.eventType) == fatalEvent) {
                drag.reset();
            }
        });
        const std::function<void(KnobDrag&)> steps[] = {[](auto& it) {
                                                            it.press({0, 0}, 1, false);
                                                        },
                                                        [](auto& it) {
                                                            it.move({0, -10}, false);
                                                        },
                                                        [](auto& it) {
                                                            it.move({0, -20}, false);
                                                        },
                                                        [](auto& it) {
                                                            it.release({0, -20});
                                                        }};
        for (const auto& step : steps) {
            if (drag != nullptr) {
                step(*drag);
            }
        }
        EXPECT_EQ(drag, nullptr);
        EXPECT_EQ(events.front().first, 1);
        EXPECT_EQ(events.back().first, 2);
        EXPECT_FALSE(parameter->isBeingInteractivelyEdited());
    }
}

constexpr core::Instant at(double seconds) {
    return core::Instant(core::Seconds(seconds));
}

TEST_F(KnobGestures, ABurstOfTheWheelIsOneTouch) {
    use({.defaultValue = 0.5F});
    KnobWheel wheel(parameter);
    EXPECT_TRUE(wheel.turn(at(0), 0, false, false)); // fingers that rest
    EXPECT_FALSE(wheel.isOpen());
    for (int i = 0; i < 8; ++i) { // parts of a notch add up
        EXPECT_TRUE(wheel.turn(at(i * 0.125), 0.25F, false, false));
    }
    EXPECT_NEAR(value(), 0.54F, 1e-5);
    EXPECT_EQ(wheel.closesAt(), at(0.875) + KnobWheel::pause);
    wheel.closeWhenDue(at(1));
    EXPECT_TRUE(wheel.isOpen());
    EXPECT_TRUE(wheel.turn(at(1), -1, true, false)); // fine
    EXPECT_NEAR(value(), 0.538F, 1e-5);
    wheel.closeWhenDue(at(1.25));
    EXPECT_FALSE(wheel.closesAt().has_value());
    EXPECT_EQ(std::ranges::count(events, 1, &std::pair<int, float>::first), 1);
    EXPECT_EQ(events.front(), std::pair(1, 0.5F));
    EXPECT_EQ(events.back().first, 2);
}

TEST_F(KnobGestures, ANotchIsAValueOfAnIndexedParameter) {
    useIndexed(1);
    KnobWheel wheel(parameter);
    for (const auto& [notches, expected] : {std::pair(0.4F, 1), {0.6F, 2}, {5.0F, 3}}) {
        wheel.turn(at(0), notches, false, false);
        EXPECT_EQ(value(), static_cast<float>(expected));
    }
}

TEST_F(KnobGestures, ScrollingPastTurnsNothing) {
    use({.defaultValue = 0.5F});
    KnobWheel wheel(parameter);
    const auto turns = [&](double when) { return wheel.turn(at(when), 1, false, true); };
    EXPECT_FALSE(turns(1));     // the page has brought the knob below a pointer that rests
    wheel.pointerCame(at(1.1)); // and the hand trembles
    EXPECT_FALSE(turns(1.2));
    EXPECT_FALSE(turns(1.4)); // still the same scrolling
    EXPECT_FALSE(turns(1.6));
    EXPECT_TRUE(turns(2)); // after a pause it is meant for the knob
    EXPECT_TRUE(turns(2.1));
    wheel.pointerLeft();
    EXPECT_TRUE(turns(2.2)); // what has begun here goes on
    wheel.close();
    EXPECT_FALSE(turns(2.3));
    EXPECT_TRUE(wheel.turn(at(2.3), 1, false, false)); // in a window that does not scroll
}

TEST_F(KnobGestures, StepsAreEdits) {
    const struct {
        ParameterStep step;
        bool isFine;
        float continuous, indexed;
    } cases[] = {
        {ParameterStep::up, false, 0.42F, 2},      {ParameterStep::down, false, 0.38F, 0},
        {ParameterStep::up, true, 0.402F, 2},      {ParameterStep::pageUp, false, 0.5F, 2},
        {ParameterStep::pageDown, true, 0.39F, 0}, {ParameterStep::toLowest, false, 0, 0},
        {ParameterStep::toHighest, false, 1, 3},   {ParameterStep::toDefault, false, 0.4F, 1},
    };
    for (const auto& [step, isFine, continuous, indexed] : cases) {
        SCOPED_TRACE(static_cast<int>(step));
        use({.defaultValue = 0.4F});
        stepParameter(parameter, step, isFine);
        EXPECT_NEAR(value(), continuous, 1e-6);
        if (step != ParameterStep::toDefault) {
            EXPECT_THAT(events, ElementsAre(Pair(1, 0.4F), Pair(0, value()), Pair(2, value())));
        }
        useIndexed(1);
        stepParameter(parameter, step, isFine);
        EXPECT_EQ(value(), indexed);
    }
    EXPECT_EQ(stepSize(*parameter), 1);
    // A range without travel has no steps, and stands them.
    use({.range = {2, 2}, .defaultValue = 2});
    stepParameter(parameter, ParameterStep::up);
    EXPECT_EQ(value(), 2);
    EXPECT_EQ(stepSize(*parameter), 0);
}

TEST(PointerHold, GivesTheWayOfAPointerThatIsPutBack) {
    PointerHold hold;
    EXPECT_EQ(hold.move({3, 4}).position, (core::Point{3, 4})); // nothing is held
    constexpr core::Rect screen{{0, 0}, {1000, 800}};
    hold.begin({100, 100}, screen);
    EXPECT_FALSE(hold.move({100, 60}).putBack);
    const auto far = hold.move({100, 50});
    EXPECT_TRUE(far.putBack);
    EXPECT_EQ(far.position, (core::Point{100, 50}));
    // What was on its way when the pointer was put back counts; that it was put back does not.
    EXPECT_EQ(hold.move({100, 40}).position, (core::Point{100, 40}));
    EXPECT_EQ(hold.move({100, 100}).position, (core::Point{100, 40}));
    EXPECT_EQ(hold.move({101, 90}).position, (core::Point{101, 30}));
    // The event of the putting back and the next movement may be one.
    EXPECT_TRUE(hold.move({100, 45}).putBack);
    EXPECT_EQ(hold.move({100, 98}).position, (core::Point{100, -17}));
    // At an edge the pointer needs another home, and comes back in the end.
    hold.begin({990, 3}, screen);
    EXPECT_EQ(hold.home(), (core::Point{904, 96}));
    EXPECT_EQ(hold.beginning(), (core::Point{990, 3}));
    EXPECT_TRUE(hold.move({990, 0}).putBack);
    EXPECT_EQ(hold.move({904, 93}).position, (core::Point{990, -3}));
    hold.begin({1, 1}, {{0, 0}, {40, 40}});
    EXPECT_EQ(hold.home(), (core::Point{20, 20}));
}

} // namespace
} // namespace fernhorn
