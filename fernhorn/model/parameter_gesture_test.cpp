#include "fernhorn/model/parameter_gesture.hpp"
#include "fernhorn/testing/parameter_fixture.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace fernhorn {
namespace {

using testing::ElementsAre;
using testing::Pair;

class ParameterGestureTest : public WithParameter {
  protected:
    void SetUp() override { use({.defaultValue = 0.5F}); }
};

TEST_F(ParameterGestureTest, SendsOneReleaseHoweverItEnds) {
    const auto endings = {
        +[](std::optional<ParameterGesture>& gesture) { gesture.reset(); },
        +[](std::optional<ParameterGesture>& gesture) {
            gesture->end();
            gesture->end();
            gesture->change(0.9F);
        },
        +[](std::optional<ParameterGesture>& gesture) {
            const ParameterGesture moved = std::move(*gesture);
            gesture->end();
        },
        +[](std::optional<ParameterGesture>& gesture) {
            std::vector<ParameterGesture> many;
            for (int i = 0; i < 10; ++i) {
                many.push_back(std::move(*gesture));
                *gesture = std::move(many.back());
            }
        },
    };
    for (const auto ending : endings) {
        std::optional<ParameterGesture> gesture(parameter);
        EXPECT_TRUE(parameter->isBeingInteractivelyEdited());
        ending(gesture);
        gesture.reset();
        EXPECT_FALSE(parameter->isBeingInteractivelyEdited());
        EXPECT_THAT(events, ElementsAre(Pair(1, 0.5F), Pair(2, 0.5F)));
        events.clear();
    }
}

TEST_F(ParameterGestureTest, AMomentaryPressWithinADragIsPartOfItsTouch) {
    ParameterGesture drag(parameter);
    drag.change(0.7F);
    {
        const ParameterGesture press(parameter, GestureStyle::momentary(0));
        drag.end();
        EXPECT_FALSE(parameter->isBeingInteractivelyEdited()) << "a press does not mark";
    }
    EXPECT_THAT(events,
                ElementsAre(Pair(1, 0.5F), Pair(0, 0.7F), Pair(0, 0), Pair(0, 0), Pair(2, 0)));
}

TEST_F(ParameterGestureTest, AMomentaryPressLeavesTheParameterReleased) {
    {
        ParameterGesture gesture(parameter, GestureStyle::momentary(0));
        gesture.change(1);
    }
    queue.drain();
    EXPECT_EQ(parameter->value(), 0);
    EXPECT_THAT(events, ElementsAre(Pair(1, 0), Pair(0, 1), Pair(0, 0), Pair(2, 0)));
}

TEST_F(ParameterGestureTest, AnObserverMayDestroyItWhileItEnds) {
    std::optional<ParameterGesture> gesture(parameter);
    const auto subscription = parameter->observeIsBeingInteractivelyEdited([&](bool) {
        gesture.reset();
        parameter.reset();
    });
    gesture->end();
    EXPECT_THAT(events, ElementsAre(Pair(1, 0.5F), Pair(2, 0.5F)));
}

} // namespace
} // namespace fernhorn
