#include "fernhorn/model/parameter_gesture.hpp"
#include "fernhorn/testing/test_parameter.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace fernhorn {
namespace {

using testing::ElementsAre;
using testing::Pair;

class ParameterGestureTest : public testing::Test {
  protected:
    core::MainQueue queue;
    std::shared_ptr<AudioParameter> parameter = TestParameter{.defaultValue = 0.5F}.on(queue);
    AutomationEvents events;
    void SetUp() override { recordEvents(*parameter, events); }
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

TEST_F(ParameterGestureTest, AFastDragAndReleaseInOneBurstKeepsTheLastValue) {
    ParameterGesture gesture(parameter);
    gesture.change(0.6F);
    gesture.change(0.7F);
    gesture.end();
    queue.drain();
    EXPECT_EQ(parameter->value(), 0.7F);
    EXPECT_THAT(events, ElementsAre(Pair(1, 0.5F), Pair(0, 0.6F), Pair(0, 0.7F), Pair(2, 0.7F)));
}

TEST_F(ParameterGestureTest, ADragIsDeafToTheUnitAndAPressIsNot) {
    for (const bool isDrag : {true, false}) {
        events.clear();
        const float before = parameter->value();
        ParameterGesture gesture(parameter, isDrag ? GestureStyle::drag() : GestureStyle::press());
        EXPECT_EQ(parameter->isBeingInteractivelyEdited(), isDrag);
        parameter->setValue(0.25F, fromUnit, change);
        queue.drain();
        gesture.end();
        queue.drain();
        const float after = isDrag ? before : 0.25F;
        EXPECT_THAT(events, ElementsAre(Pair(1, before), Pair(2, after)));
        EXPECT_EQ(parameter->value(), after);
    }
}

TEST_F(ParameterGestureTest, GesturesThatOverlapAreOneTouch) {
    ParameterGesture wheel(parameter);
    wheel.change(0.6F);
    ParameterGesture drag(parameter);
    drag.change(0.7F);
    wheel.end();
    queue.drain();
    EXPECT_TRUE(parameter->isBeingInteractivelyEdited());
    parameter->setValue(0.1F, fromUnit, change);
    queue.drain();
    EXPECT_EQ(parameter->value(), 0.7F) << "the drag goes on";
    {
        const ParameterGesture press(parameter, GestureStyle::momentary(0));
        drag.end();
        EXPECT_FALSE(parameter->isBeingInteractivelyEdited()) << "a press does not mark";
    }
    EXPECT_THAT(events, ElementsAre(Pair(1, 0.5F), Pair(0, 0.6F), Pair(0, 0.7F), Pair(0, 0),
                                    Pair(0, 0), Pair(2, 0)));
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
