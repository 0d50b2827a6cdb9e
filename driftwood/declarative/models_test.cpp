#include "driftwood/declarative/drift_segment_model.hpp"
#include "driftwood/declarative/drift_slider_track.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace driftwood {
namespace {

using Values = std::vector<double>;
using Behaviour = SliderIconClickBehaviour;

std::shared_ptr<DriftSliderModel> makeModel(Values starts, double minimum = 0, double maximum = 100,
                                            double increment = 10,
                                            Behaviour behaviour = Behaviour::increment) {
    return std::make_shared<DriftSliderModel>(std::move(starts), 40, minimum, maximum, increment,
                                              behaviour);
}

/// Everything that a model tells, as "s5 o6 c6 ".
std::shared_ptr<std::string> listen(DriftSliderModel& model) {
    const auto log = std::make_shared<std::string>();
    const auto write = [log](char what) {
        return
            [log, what](double value) { *log += what + std::to_string(std::lround(value)) + ' '; };
    };
    model.onSlideStarted = write('s');
    model.onSlideOngoing = write('o');
    model.onSlideComplete = write('c');
    return log;
}

TEST(DriftSliderModel, StartsWithTheCommonValueOrMixed) {
    EXPECT_EQ(makeModel({3, 3, 3})->value.value(), 3);
    EXPECT_EQ(makeModel({1, 2})->value.value(), std::nullopt);
    EXPECT_EQ(makeModel({})->value.value(), std::nullopt);
    struct Case {
        double value, minimum, maximum, place;
    };
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const Case cases[] = {{25, 0, 100, 0.25}, {-1, 0, 100, 0},  {101, 0, 100, 1},
                          {0, -10, 10, 0.5},  {nan, 0, 100, 0}, {3, 3, 3, 0}};
    for (const Case& c : cases) {
        EXPECT_EQ(makeModel({}, c.minimum, c.maximum)->normalised(c.value), c.place) << c.value;
    }
    const auto model = makeModel({1, 2});
    model->setPercent(1.5);
    EXPECT_EQ(model->value.value(), 100);
    model->setPercent({});
    EXPECT_EQ(model->percent(), std::nullopt);
    EXPECT_DEATH((void)makeModel({}, 1, 0)->normalised(0), "Fatal error: A slider's range");
}

TEST(DriftSliderModel, IsSteppedByIconsAndResetAndAlwaysTells) {
    struct Case {
        const char* what;
        Values starts;
        Behaviour behaviour;
        void (DriftSliderModel::*operation)();
        const char* told;
    };
    const Case cases[] = {
        {"up", {55}, Behaviour::increment, &DriftSliderModel::rightIconClicked, "c65 "},
        {"at the end", {100}, Behaviour::increment, &DriftSliderModel::rightIconClicked, "c100 "},
        {"mixed", {1, 2}, Behaviour::increment, &DriftSliderModel::leftIconClicked, "c30 "},
        {"to the end", {1, 2}, Behaviour::maxMin, &DriftSliderModel::rightIconClicked, "c100 "},
        {"to the start", {55}, Behaviour::maxMin, &DriftSliderModel::leftIconClicked, "c0 "},
        {"reset", {1, 2}, Behaviour::maxMin, &DriftSliderModel::resetToDefaultValue, "c40 "},
        {"nothing to reset",
         {40},
         Behaviour::maxMin,
         &DriftSliderModel::resetToDefaultValue,
         "c40 "},
    };
    for (const Case& c : cases) {
        const auto model = makeModel(c.starts, 0, 100, 10, c.behaviour);
        const auto log = listen(*model);
        (*model.*c.operation)();
        EXPECT_EQ(*log, c.told) << c.what;
    }
}

TEST(DriftSliderTrack, ShowsUpToFiveKnobsAndBeyondThatAFullTrack) {
    struct Case {
        const char* what;
        Values starts;
        double width, fill, knob, opacity;
        Values extra;
    };
    const Case cases[] = {
        {"one value", {50, 50}, 200, 100, 100, 1, {}},
        {"the least", {0}, 200, 16, 8, 1, {}},
        {"the most", {100}, 200, 200, 192, 1, {}},
        {"two values", {0, 50}, 200, 0, 8, 0.3, {100}},
        {"duplicates too", {50, 0, 50, 100, 25}, 200, 0, 100, 0.3, {8, 100, 192, 50}},
        {"six values", {50, 0, 50, 100, 25, 1}, 200, 200, 100, 0, {}},
        {"no values", {}, 200, 0, 8, 0.3, {}},
    };
    for (const Case& c : cases) {
        const auto parts = drift_slider::trackParts(*makeModel(c.starts), c.width);
        ASSERT_TRUE(parts) << c.what;
        EXPECT_EQ(parts->fillWidth, c.fill) << c.what;
        EXPECT_EQ(parts->knobX, c.knob) << c.what;
        EXPECT_EQ(parts->knobOpacity, c.opacity) << c.what;
        Values extra;
        for (const auto& knob : parts->extraKnobs) {
            if (knob) {
                extra.push_back(*knob);
            }
        }
        EXPECT_EQ(extra, c.extra) << c.what;
    }
    EXPECT_FALSE(drift_slider::trackParts(*makeModel({50}), 10));
    EXPECT_DEATH((void)drift_slider::trackParts(*makeModel({50}), 15), "needs 16 points");
}

TEST(DriftSliderDrag, JumpsBesideTheKnobHoldsOnItAndSnaps) {
    struct Move {
        double x;
        bool snaps = false;
    };
    struct Case {
        const char* what;
        Values starts;
        double minimum;
        std::vector<Move> moves; // the first one presses
        const char* told;
    };
    // A track of 200 points for 0 to 100.
    const Case cases[] = {
        {"beside", {50}, 0, {{150}, {160}}, "s75 o80 c80 "},
        {"on the knob, a little", {50}, 0, {{104}, {110}, {112}}, "s50 c50 "},
        {"on the knob, more", {50}, 0, {{104}, {114}, {118}}, "s50 o57 c57 "},
        {"on its middle there is no dead zone", {50}, 0, {{100}, {102}}, "s50 o51 c51 "},
        {"near the ends", {50}, 0, {{30}, {7}, {193}, {-50}}, "s15 o0 o100 o0 c0 "},
        {"mixed", {0, 100}, 0, {{100}, {110}}, "s50 o55 c55 "},
        {"mixed, only held", {50, 100}, 0, {{104}, {105}}, ""},
        // Nothing has a value at first: the start is told with the first one.
        {"mixed, from the knob", {50, 100}, 0, {{104}, {124}}, "s60 o60 c60 "},
        {"snapping", {0}, 0, {{60}, {94, true}, {96, true}}, "s30 o50 c50 "},
        // The minimum counts twice: 47 % of 20 to 100 would snap to 60.
        {"snapping from a minimum", {20}, 20, {{60}, {94, true}}, "s44 o40 c40 "},
    };
    for (const Case& c : cases) {
        const auto model = makeModel(c.starts, c.minimum);
        const auto log = listen(*model);
        DriftSliderDrag drag(model);
        for (const Move& move : c.moves) {
            drag.move({move.x, 12}, move.x - c.moves[0].x, 200, move.snaps);
        }
        drag.end();
        drag.end();
        EXPECT_EQ(*log, c.told) << c.what;
    }
}

TEST(DriftSliderDrag, EndsOnceWhereAnObserverOfTheValueEndsItAndKnowsNumbersOnly) {
    for (const double endsAt : {75.0, 80.0}) { // the press, and a move
        const auto model = makeModel({50});
        const auto log = listen(*model);
        auto drag = std::make_unique<DriftSliderDrag>(model);
        const auto observer = model->value.observe([&](const std::optional<double>& value) {
            if (value == endsAt) {
                drag->end();
                drag.reset();
            }
        });
        for (double x = 150; drag != nullptr; x += 10) {
            drag->move({x, 12}, 10, 200, false);
        }
        EXPECT_EQ(*log, endsAt == 75 ? "s75 c75 " : "s75 c80 ");
    }
    const auto model = makeModel({50});
    model->incrementBy = 0;
    const auto log = listen(*model);
    DriftSliderDrag drag(model);
    drag.move({150, 12}, 0, 200, false);
    drag.move({160, 12}, 10, 200, true);
    drag.end();
    model->setValue(std::nan(""));
    EXPECT_EQ(*log, "s75 c75 ");
    EXPECT_EQ(model->value.value(), 75);
}

TEST(DriftSegmentModel, SelectsDeselectsAndShowsWhatWasHidden) {
    const auto item = [](int id) {
        return std::make_shared<const DriftSegmentItem>(id, std::to_string(id));
    };
    DriftSegmentedControlModel model({item(1), item(2)});
    std::string log;
    model.onSelectionChanged = [&](const DriftSegmentedControlModel::Item& selected) {
        log += selected != nullptr ? selected->title : "-";
    };
    model.select(2);
    model.select(9);
    EXPECT_EQ(model.selectedItem.value()->id, 2);
    EXPECT_EQ(log, "") << "a program tells nobody";
    model.userSelect(item(1));
    model.userSelect(item(1)); // another object, the same item
    EXPECT_EQ(log, "1-");
    model.select(2);
    model.hideSelection.set(true);
    EXPECT_FALSE(model.showsAsSelected(*item(2)));
    model.userSelect(item(2));
    EXPECT_TRUE(model.showsAsSelected(*item(2)));
    EXPECT_FALSE(model.hideSelection.value());
    model.hideSelection.set(true);
    model.select(1);
    EXPECT_TRUE(model.hideSelection.value());
    model.userSelect(item(2));
    EXPECT_TRUE(model.showsAsSelected(*item(2)));
    EXPECT_EQ(log, "1-22");
}

} // namespace
} // namespace driftwood
