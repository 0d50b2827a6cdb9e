#include "fernhorn/testing/test_parameter.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace fernhorn {
namespace {

using platform::AudioUnitParameterUnit;
using testing::ElementsAre;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();

class AudioParameterTest : public testing::Test {
  protected:
    core::MainQueue queue{4};
    std::shared_ptr<AudioParameter> parameter = TestParameter{}.on(queue);
    AutomationEvents events;
    std::vector<float> shown;
    core::Subscription subscription =
        parameter->observeValue([this](float value) { shown.push_back(value); });
    void SetUp() override { recordEvents(*parameter, events); }
};

TEST(AudioParameterAttributes, FollowUnitsStringsAndDependents) {
    using Strings = std::optional<std::vector<std::string>>;
    using Addresses = std::optional<std::vector<platform::AUParameterAddress>>;
    struct Case {
        std::uint32_t units;
        Strings strings;
        Addresses dependents;
        std::uint32_t flags;
        std::string suffix;
        float displayed; // of the value 50
    };
    const Case cases[] = {
        {0, {}, {}, 0xC000'0000, "", 50},
        {1, {{"Off", "On"}}, {}, 0xC020'0000, "", 50},
        {1, {std::vector<std::string>{}}, {}, 0xC000'0000, "", 50},
        {3, {}, {}, 0xC000'0000, "%", 50},
        {4, {}, {{7}}, 0xD010'0000, "", 50},
        {8, {}, Addresses(std::in_place), 0xC000'0000, "Hz", 50},
        {13, {{"a"}}, {{7, 8}}, 0xD230'0000, "dB", 50},
        {14, {}, {}, 0xC200'0000, "", 50},
        {20, {}, {}, 0xC200'0000, "", 0.5F},
        {24, {}, {}, 0xC000'0000, "MS", 50},
    };
    core::MainQueue queue;
    for (const auto& one : cases) {
        SCOPED_TRACE(one.units);
        const auto units = static_cast<AudioUnitParameterUnit>(one.units);
        const auto parameter =
            TestParameter{9, units, {0, 100}, 50, one.strings, one.dependents}.on(queue);
        const auto& unit = *parameter->auParameter();
        EXPECT_EQ(unit.flags(), one.flags);
        EXPECT_EQ(unit.unitName(), one.suffix);
        EXPECT_EQ(unit.valueStrings(), one.strings);
        EXPECT_EQ(unit.dependentParameters(), one.dependents);
        EXPECT_EQ(unit.value(), 50);
        EXPECT_EQ(parameter->displayableSuffix(), one.suffix);
        EXPECT_EQ(parameter->displayableValue(), one.displayed);
        EXPECT_FLOAT_EQ(parameter->saveScaleFactor() * parameter->displayScaleFactor(), 1);
        EXPECT_EQ(parameter->isIndexed(), one.units == 1);
    }
    const auto placeholder = std::make_shared<AudioParameter>();
    EXPECT_EQ(placeholder->units(), AudioUnitParameterUnit::customUnit);
    EXPECT_EQ(placeholder->auParameter()->flags(), 0xC000'0000);
    EXPECT_EQ(placeholder->normalizedPosition(0), 0);
}

// What every sequence of changes, gestures and deliveries leads to is told by a plain model, in
// edit_protocol_test.cpp. Here is what that model knows nothing of.

TEST_F(AudioParameterTest, WritesTheHostsTimeAndHearsNoEchoOfAChange) {
    std::uint64_t hostTime = 0;
    parameter->auParameter()->addParameterAutomationObserver(
        [&](const auto& event) { hostTime = event.hostTime; });
    parameter->setValue(1, fromUi, change);
    EXPECT_EQ(hostTime, 77U);
    queue.drain();
    // Within a notification the change that is notified is not pending any more.
    const auto echo =
        parameter->observeValue([&](float value) { parameter->setValue(value, fromUi, change); });
    events.clear();
    parameter->setValue(0.5F, fromUnit, change);
    queue.drain();
    EXPECT_TRUE(events.empty());
    EXPECT_THAT(shown, ElementsAre(1, 0.5F));
}

TEST(AudioParameterDeathTest, NeedsARange) {
    core::MainQueue queue;
    EXPECT_DEATH((void)(TestParameter{.range = {nan, nan}}.on(queue)), "range are NaN");
    EXPECT_DEATH((void)(TestParameter{.range = {1, 0}}.on(queue)), "wrong order");
}

TEST_F(AudioParameterTest, LivesUntilItsPendingChangesHaveArrived) {
    for (const int others : {0, 4}) { // in the ring, and merged behind it
        shown.clear();
        auto doomed = TestParameter{}.on(queue);
        const std::weak_ptr<AudioParameter> weak = doomed;
        const auto observation = doomed->observeValue([&](float value) { shown.push_back(value); });
        for (int i = 0; i < others; ++i) {
            queue.post([] {});
        }
        doomed->setValue(1, fromUi, change);
        doomed.reset();
        EXPECT_FALSE(weak.expired());
        queue.drain();
        EXPECT_TRUE(weak.expired());
        EXPECT_THAT(shown, ElementsAre(1));
    }
    std::weak_ptr<AudioParameter> weak;
    {
        core::MainQueue doomedQueue(2);
        const auto doomed = TestParameter{}.on(doomedQueue);
        weak = doomed;
        for (int i = 1; i <= 4; ++i) {
            doomed->setValue(0.1F * static_cast<float>(i), fromUi, change);
        }
    }
    EXPECT_TRUE(weak.expired()) << "a queue that ends releases what it has never delivered";
}

TEST_F(AudioParameterTest, WhoeverDrainsTheNewestValueStays) {
    // An observer runs a dialog, say, while changes of both sources are merged.
    for (const auto source : {fromUi, fromUnit}) {
        core::MainQueue small(2);
        const auto merged = TestParameter{}.on(small);
        small.post([] {});
        small.post([] {});
        std::vector<float> second;
        const auto first = merged->observeValue([&](float value) {
            if (value == 0.1F) {
                small.drain(); // the ring is open again
                merged->setValue(0.3F, source, change);
                small.drain();
            }
        });
        const auto behind = merged->observeValue([&](float value) { second.push_back(value); });
        merged->setValue(0.1F, fromUnit, change);
        merged->setValue(0.2F, fromUi, change);
        while (small.drain()) {
        }
        EXPECT_EQ(merged->value(), 0.3F);
        EXPECT_THAT(second, ElementsAre(0.3F)) << "not an older value after it";
    }
}

TEST(ParameterLife, AQueueThatNobodyDrainsKeepsNoMoreThanItsRing) {
    core::MainQueue queue(16);
    std::vector<std::weak_ptr<AudioParameter>> all;
    for (int instance = 0; instance < 20; ++instance) {
        std::vector<std::shared_ptr<AudioParameter>> parameters;
        for (int i = 0; i < 50; ++i) {
            parameters.push_back(TestParameter{}.on(queue));
            all.push_back(parameters.back());
            parameters.back()->setValue(0.5F, fromUnit, change);
            parameters.back()->setValue(0.75F, fromUi, change);
        }
    }
    const auto alive = [&] {
        return std::ranges::count_if(all, [](const auto& one) { return !one.expired(); });
    };
    EXPECT_LE(alive(), 16);
    const auto last = TestParameter{}.on(queue);
    last->setValue(1, fromUnit, change);
    while (queue.drain()) {
    }
    EXPECT_EQ(alive(), 0);
    EXPECT_EQ(last->value(), 1);
}

TEST_F(AudioParameterTest, ObserversMayLeaveAndEditWithinANotification) {
    core::Subscription second;
    int secondCalls = 0;
    subscription = parameter->observeValue([&](float value) {
        shown.push_back(value);
        second.cancel();
        parameter->setValue(value / 2, fromUi, change);
        if (shown.size() == 3) {
            subscription.cancel();
            parameter.reset();
        }
    });
    second = parameter->observeValue([&](float) { ++secondCalls; });
    parameter->setValue(1, fromUi, change);
    while (queue.drain()) {
    }
    EXPECT_THAT(shown, ElementsAre(1, 0.5F, 0.25F));
    EXPECT_EQ(secondCalls, 0);
}

} // namespace
} // namespace fernhorn
