#include "fernhorn/format/default_label_formatter.hpp"
#include "fernhorn/format/label_name_formatter.hpp"
#include "fernhorn/model/parameter_gesture.hpp"
#include "fernhorn/model/parameter_settings.hpp"
#include "fernhorn/plugin/host_edits.hpp"
#include "fernhorn/plugin/host_text.hpp"
#include "fernhorn/plugin/render_events.hpp"
#include "fernhorn/testing/recording_unit.hpp"
#include "fernhorn/testing/test_parameter.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <thread>

namespace fernhorn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = HostEdit::Kind;
using Unit = platform::AudioUnitParameterUnit;

class PluginTest : public testing::Test {
  protected:
    core::MainQueue queue;
    std::shared_ptr<AudioParameter> gain = TestParameter{.address = 1}.on(queue);
    std::shared_ptr<AudioParameter> drive = TestParameter{.address = 2}.on(queue);
    std::shared_ptr<RecordingUnit> unit = std::make_shared<RecordingUnit>();
    std::shared_ptr<ParameterSettings> settings = std::make_shared<ParameterSettings>();

    void SetUp() override {
        settings->setupParameters({gain, drive});
        settings->configureAudioUnit(unit);
        settings->setupParameterTreeListeners();
        unit->values.clear();
    }
    static std::vector<HostEdit> taken(HostEdits& edits) {
        std::vector<HostEdit> all;
        edits.take([&](const HostEdit& edit) { all.push_back(edit); });
        return all;
    }
};

TEST_F(PluginTest, TellsTheHostOneTouchHoweverGesturesOverlap) {
    HostEdits edits(unit->parameterTree());
    {
        ParameterGesture wheel(gain);
        wheel.change(0.25F);
        ParameterGesture press(gain, GestureStyle::momentary(0));
        press.change(1);
        EXPECT_TRUE(edits.isTouched(1));
        EXPECT_FALSE(edits.isTouched(2));
    }
    gain->setValue(0.75F, fromUi, begin); // controls without a gesture object
    gain->setValue(0.5F, fromUi, begin);
    gain->setValue(0.5F, fromUi, end);
    gain->setValue(0.5F, fromUi, end);
    gain->setValue(0.5F, fromUi, end); // one too many
    const auto all = taken(edits);
    EXPECT_EQ(std::ranges::count(all, Kind::begin, &HostEdit::kind), 2);
    EXPECT_EQ(std::ranges::count(all, Kind::end, &HostEdit::kind), 2);
    EXPECT_EQ(all.front().kind, Kind::begin);
    EXPECT_EQ(all.back(), (HostEdit{Kind::end, 1, 0.5F}));
    EXPECT_FALSE(edits.isTouched(1));
}

TEST_F(PluginTest, BracketsLoneEditsWhereTheHostDemandsIt) {
    for (const auto lone : {LoneEdits::asTheyAre, LoneEdits::bracketed}) {
        HostEdits edits(unit->parameterTree(), lone);
        const float value = lone == LoneEdits::bracketed ? 0.5F : 0.25F;
        drive->setValue(value, fromUi, change);
        queue.drain();
        std::vector<HostEdit> expected{{Kind::value, 2, value}};
        if (lone == LoneEdits::bracketed) {
            expected.insert(expected.begin(), {Kind::begin, 2, value});
            expected.push_back({Kind::end, 2, value});
        }
        EXPECT_EQ(taken(edits), expected);
    }
}

TEST_F(PluginTest, TheHostsOwnValuesDoNotComeBackAndWaitDuringATouch) {
    HostEdits edits(unit->parameterTree());
    edits.writeFromHost(1, 0.5F);
    edits.writeFromHost(77, 0.5F);
    queue.drain();
    EXPECT_EQ(gain->value(), 0.5F);
    EXPECT_THAT(taken(edits), IsEmpty());
    ParameterGesture drag(gain);
    drag.change(0.75F);
    edits.writeFromHost(1, 0.6F); // the host's late echo
    queue.drain();
    EXPECT_EQ(gain->auParameter()->value(), 0.75F);
    drag.end();
    edits.writeFromHost(1, 0.25F);
    queue.drain();
    EXPECT_EQ(gain->value(), 0.25F);
}

// Far more than there is room for, from two threads, while the host's side takes now and then: what
// it is told is well formed, ends with the newest values and leaves nothing open.
TEST_F(PluginTest, LosesNeitherTheNewestValueNorAnEndWithoutRoom) {
    const auto tree = unit->parameterTree();
    unit.reset(); // it records, which is for one thread
    for (const std::size_t capacity : {2U, 8U, 1024U}) {
        HostEdits edits(tree, LoneEdits::bracketed, capacity);
        std::array<float, 3> told{-1, -1, -1};
        std::array<bool, 3> isOpen{};
        bool isWellFormed = true;
        const auto take = [&] {
            edits.take([&](const HostEdit& edit) {
                bool& open = isOpen[edit.address];
                isWellFormed = isWellFormed && open == (edit.kind != Kind::begin);
                open = edit.kind != Kind::end;
                told[edit.address] = edit.value;
            });
        };
        std::atomic<int> running{2};
        std::vector<std::thread> interfaces;
        for (const auto& parameter : {gain, drive}) {
            interfaces.emplace_back([&, parameter] {
                std::mt19937 random(static_cast<unsigned>(capacity));
                for (int i = 0; i < 20'000; ++i) {
                    const float value = static_cast<float>(random() % 1000) / 1000;
                    parameter->setValue(value, fromUi,
                                        i % 7 == 2   ? begin
                                        : i % 7 == 5 ? end
                                                     : change);
                }
                parameter->setValue(1, fromUi, end); // of the last begin
                parameter->setValue(0.5F, fromUi, change);
                --running;
            });
        }
        while (running > 0) {
            take();
            queue.drain(100);
        }
        for (auto& one : interfaces) {
            one.join();
        }
        take();
        EXPECT_TRUE(isWellFormed) << capacity;
        EXPECT_EQ(isOpen, (std::array<bool, 3>{})) << capacity;
        EXPECT_EQ(told, (std::array<float, 3>{-1, 0.5F, 0.5F})) << capacity;
        queue.drain();
    }
}

TEST_F(PluginTest, RendersEventsAtTheirSamplesAndPublishesThemOnce) {
    HostEdits edits(unit->parameterTree());
    RenderEvents events(*unit, edits.originator());
    ASSERT_TRUE(unit->scheduleParameter(164, 0, 1, 0.25F));
    ASSERT_TRUE(unit->scheduleParameter(110, 0, 2, 7));
    ASSERT_TRUE(unit->scheduleParameter(110, 0, 99, 3));
    ASSERT_TRUE(unit->scheduleParameter(131, 0, 2, 0.5F));
    std::vector<std::pair<unsigned, unsigned>> pieces;
    std::vector<std::size_t> known; // events the signal processing knows at each piece
    const auto render = [&](unsigned first, unsigned count) {
        pieces.emplace_back(first, count);
        known.push_back(unit->values.size());
    };
    using testing::Pair;
    events.render(100, 32, render);
    EXPECT_THAT(pieces, ElementsAre(Pair(0, 10), Pair(10, 21), Pair(31, 1)));
    EXPECT_THAT(known, ElementsAre(0, 2, 3));
    EXPECT_THAT(unit->values,
                ElementsAre(Pair(2, 1), Pair(99, 3), Pair(2, 0.5F), Pair(2, 0.5F))); // the echo
    queue.drain();
    EXPECT_EQ(drive->value(), 0.5F);
    EXPECT_EQ(gain->value(), 0);
    EXPECT_THAT(taken(edits), IsEmpty());
    pieces.clear();
    events.render(132, 0, render);
    EXPECT_THAT(pieces, IsEmpty());
}

TEST_F(PluginTest, HostsReadAndWriteWhatALabelShows) {
    const auto pitch =
        TestParameter{.units = Unit::absoluteCents, .range = {-2400, 2400}}.on(queue);
    useFormatter(*pitch, std::make_shared<DefaultLabelFormatter>(*pitch, 1));
    const auto wave = TestParameter{.valueStrings = {{"Sine", "Saw"}}}.on(queue);
    useFormatter(*wave, std::make_shared<LabelNameFormatter>(*wave));
    struct Case {
        const AudioParameter& parameter;
        float value;
        std::string text;
    };
    const Case cases[] = {{*pitch, 1250, "12.5"},
                          {*pitch, NAN, "-"},
                          {*wave, 1, "Saw"},
                          {*wave, 7, "Saw"},
                          {*wave, 0.4F, "Sine"}};
    for (const auto& one : cases) {
        EXPECT_EQ(one.parameter.auParameter()->string(&one.value), one.text) << one.value;
    }
    EXPECT_EQ(pitch->auParameter()->string(nullptr), "-");
    EXPECT_EQ(pitch->auParameter()->value("12.5"), 1250);
    EXPECT_EQ(wave->auParameter()->value("saw"), 1);
    pitch->auParameter()->setValue(700);
    EXPECT_EQ(pitch->auParameter()->value("what"), 700);
}

} // namespace
} // namespace fernhorn
