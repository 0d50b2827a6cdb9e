#include "driftwood/util/segment_row.hpp"
#include "driftwood/util/slider_drag.hpp"
#include "driftwood/util/tracking_value.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace driftwood {

void PrintTo(const core::Rect& r, std::ostream* out) {
    *out << r.origin.x << ' ' << r.origin.y << ' ' << r.size.width << ' ' << r.size.height;
}

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

SliderParts parts(core::Rect bounds, SliderKind kind = SliderKind::horizontal, bool isRtl = false) {
    return {bounds, core::Size{12, 6}, core::Size{16, 16}, kind, isRtl};
}

TEST(SliderGeometry, PutsBarKnobAndFillingWhereTheArtworkWantsThem) {
    struct Case {
        const char* what;
        SliderParts parts;
        double place;
        core::Rect bar, knob, filled;
    };
    const core::Rect lying{{0, 0}, {100, 22}};
    const Case cases[] = {
        {"minimum", parts(lying), 0, {{2, 8}, {96, 6}}, {{0, 3}, {16, 16}}, {{2, 8}, {6, 6}}},
        {"middle", parts(lying), 0.5, {{2, 8}, {96, 6}}, {{42, 3}, {16, 16}}, {{2, 8}, {48, 6}}},
        {"maximum", parts(lying), 1, {{2, 8}, {96, 6}}, {{84, 3}, {16, 16}}, {{2, 8}, {90, 6}}},
        {"from the right",
         parts(lying, SliderKind::horizontal, true),
         0,
         {{2, 8}, {96, 6}},
         {{84, 3}, {16, 16}},
         {{92, 8}, {6, 6}}},
        // A knob is kept left of the bar's width less 12, however small that is.
        {"narrow",
         parts({{0, 0}, {10, 22}}),
         1,
         {{2, 8}, {6, 6}},
         {{0, 3}, {16, 16}},
         {{2, 8}, {6, 6}}},
        {"upright, minimum below",
         parts({{0, 0}, {22, 100}}, SliderKind::vertical),
         0,
         {{8, 2}, {6, 96}},
         {{3, 84}, {16, 16}},
         {{8, 92}, {6, 6}}},
        {"upright, maximum above",
         parts({{0, 0}, {22, 100}}, SliderKind::vertical),
         1,
         {{8, 2}, {6, 96}},
         {{3, 0}, {16, 16}},
         {{8, 8}, {6, 90}}},
        {"round, at six o'clock",
         parts({{0, 0}, {48, 48}}, SliderKind::circular),
         0,
         {{8, 8}, {32, 32}},
         {{16, 32}, {16, 16}},
         {{8, 8}, {32, 32}}},
        // Without images it is drawn as large as a plain one.
        {"no images",
         {lying, {}, {}, SliderKind::horizontal, false},
         0,
         {{2, 9}, {96, 4}},
         {{0, 0}, {21, 21}},
         {{2, 9}, {9, 4}}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(barRect(c.parts), c.bar) << c.what;
        EXPECT_EQ(knobRect(c.parts, c.place), c.knob) << c.what;
        EXPECT_EQ(filledRect(c.parts, c.place), c.filled) << c.what;
    }
    // A knob whose middle is at the bar's left end leaves nothing to fill.
    SliderParts thin = parts(lying);
    thin.knobImage = core::Size{4, 16};
    EXPECT_EQ(filledRect(thin, 0).size.width, 0);
}

TEST(SliderGeometry, LeadsFromPlacesToPointsAndBack) {
    for (const SliderKind kind :
         {SliderKind::horizontal, SliderKind::vertical, SliderKind::circular}) {
        for (const bool isRtl : {false, true}) {
            const SliderParts p = parts({{0, 0}, {200, 200}}, kind, isRtl);
            for (double place = 0; place < 1; place += 0.125) {
                // The knob stands on whole points.
                EXPECT_NEAR(placeAt(p, core::midPoint(knobRect(p, place))), place, 0.01);
            }
        }
    }
}

TEST(SliderDrag, HoldsTheKnobWhereItWasTakenAndReachesBothEnds) {
    struct Case {
        SliderKind kind;
        core::Point beside, onKnob, by, beyond;
        double expectedBeside, expectedBy, expectedBeyond;
    };
    // Half way; the pointer takes the knob 5 points off its middle and goes on by 23 of 184.
    const Case cases[] = {
        {SliderKind::horizontal, {54, 11}, {105, 100}, {128, 90}, {900, 0}, 0.25, 0.625, 1},
        {SliderKind::vertical, {11, 54}, {100, 95}, {70, 118}, {0, 900}, 0.75, 0.375, 0},
    };
    for (const Case& c : cases) {
        const SliderParts p = parts({{0, 0}, {200, 200}}, c.kind);
        SliderDrag drag;
        EXPECT_FALSE(drag.end());
        EXPECT_DOUBLE_EQ(drag.press(p, 0.5, c.beside), c.expectedBeside);
        EXPECT_TRUE(drag.end());
        EXPECT_EQ(drag.press(p, 0.5, c.onKnob), 0.5);
        EXPECT_NEAR(drag.move(p, c.by), c.expectedBy, 1e-12);
        EXPECT_EQ(drag.move(p, c.beyond), c.expectedBeyond);
        EXPECT_TRUE(drag.end());
        EXPECT_FALSE(drag.end());
    }
    // A round one goes on beyond its ends.
    const SliderParts round = parts({{0, 0}, {200, 200}}, SliderKind::circular);
    SliderDrag drag;
    EXPECT_DOUBLE_EQ(drag.press(round, 0, {10, 100}), 0.25) << "nine o'clock";
    EXPECT_DOUBLE_EQ(drag.move(round, {100, 0}), 0.5);
    EXPECT_DOUBLE_EQ(drag.move(round, {190, 100}), 0.75);
    EXPECT_NEAR(drag.move(round, {99.9, 200}), 0, 0.001);
}

TEST(SliderScrolling, MovesByPartsOfTheRange) {
    struct Case {
        const char* what;
        SliderKind kind;
        SliderRange range;
        double value;
        SliderScroll scroll;
        double expected;
    };
    const Case cases[] = {
        {"one notch", SliderKind::horizontal, {0, 100}, 50, {{0, 10}}, 52.5},
        {"natural", SliderKind::horizontal, {0, 100}, 50, {{0, 10}, true}, 47.5},
        {"to the left", SliderKind::horizontal, {0, 100}, 50, {{10, 0}}, 47.5},
        {"to the left, mirrored",
         SliderKind::horizontal,
         {0, 100},
         50,
         {{10, 0}, false, true},
         52.5},
        {"upright knows no sides", SliderKind::vertical, {0, 100}, 50, {{10, 0}}, 50},
        {"stops at its end", SliderKind::vertical, {0, 100}, 99, {{0, 10}}, 100},
        {"round, over the end", SliderKind::circular, {0, 360}, 359, {{0, 800.0 / 360}}, 2},
        {"round, back", SliderKind::circular, {0, 360}, 1, {{0, -800.0 / 360}}, 358},
        {"round, more than round", SliderKind::circular, {0, 1}, 0.5, {{0, 4000}}, 1},
        {"no length", SliderKind::circular, {3, 3}, 3, {{0, 10}}, 3},
    };
    for (const Case& c : cases) {
        EXPECT_NEAR(scrolledValue(c.kind, c.range, c.value, c.scroll), c.expected, 1e-9) << c.what;
    }
    for (const SliderRange& range : {SliderRange{1, 0}, {nan, 1}, {0, nan}}) {
        EXPECT_DEATH((void)range.clamped(0), "Fatal error: A slider needs a range");
    }
}

TEST(TrackingValue, GoesByOneIncrementAnEventAndStaysInItsRange) {
    TrackingValue value;
    value.setDoubleValue(0.5);
    for (int i = 0; i < 10; ++i) {
        EXPECT_TRUE(value.pan(600.0 * (i + 1)));
    }
    EXPECT_NEAR(value.doubleValue(), 0.6, 1e-9);
    const double before = value.doubleValue();
    value.valueWasEdited = false;
    for (const double slow : {5.0, -5.0, 0.0, nan}) {
        EXPECT_FALSE(value.pan(slow)) << slow;
    }
    EXPECT_FALSE(value.step(0));
    EXPECT_FALSE(value.valueWasEdited);
    EXPECT_EQ(value.doubleValue(), before);
    value.setDoubleValue(7);
    EXPECT_EQ(value.doubleValue(), 1);
    EXPECT_TRUE(value.step(0.001)) << "at the end, too";
    EXPECT_TRUE(value.valueWasEdited);
    EXPECT_EQ(value.doubleValue(), 1);

    value.maximumValue = 1e300;
    for (const auto& [number, whole] : {std::pair(2.9, 2), {0.99, 0}}) {
        value.setDoubleValue(number);
        EXPECT_EQ(value.intValue(), whole);
        EXPECT_EQ(value.integerValue(), whole);
    }
    value.setDoubleValue(2147483648.0);
    EXPECT_EQ(value.integerValue(), 2147483648);
    EXPECT_DEATH((void)value.intValue(), "does not fit an integer");
    value.setDoubleValue(9223372036854775808.0);
    EXPECT_DEATH((void)value.integerValue(), "does not fit an integer");
    value.maximumValue = -1;
    EXPECT_DEATH(value.setDoubleValue(0), "needs a range");
    value.maximumValue = nan;
    EXPECT_DEATH(value.setDoubleValue(0), "needs a range");
}

TEST(SegmentFrames, LieEdgeToEdge) {
    using D = SegmentDistribution;
    struct Case {
        const char* what;
        std::vector<double> widths;
        double room;
        D distribution;
        bool isRtl;
        std::vector<std::pair<double, double>> expected; // x, width
    };
    const Case cases[] = {
        {"as wanted", {30.4, 30.4, 30.4}, 200, D::fit, false, {{0, 30}, {30, 31}, {61, 30}}},
        {"mirrored", {30, 50}, 100, D::fit, true, {{70, 30}, {20, 50}}},
        {"filling", {30, 50}, 100, D::fill, false, {{0, 40}, {40, 60}}},
        {"squeezed", {60, 120}, 90, D::fill, false, {{0, 30}, {30, 60}}},
        {"nothing", {}, 90, D::fill, false, {}},
    };
    for (const Case& c : cases) {
        const auto frames =
            segmentFrames(c.widths, {{{0, 0}, {c.room, 28}}, c.distribution, c.isRtl});
        ASSERT_EQ(frames.size(), c.expected.size()) << c.what;
        for (std::size_t i = 0; i < frames.size(); ++i) {
            EXPECT_EQ(frames[i], (core::Rect{{c.expected[i].first, 0}, {c.expected[i].second, 28}}))
                << c.what;
        }
        EXPECT_EQ(segmentAt(frames, {0, 28}), std::nullopt) << "below";
    }
}

TEST(SegmentRow, KeepsOnlySegmentsThatAreThere) {
    SegmentRow row;
    EXPECT_FALSE(row.moveKey(SegmentMove::last));
    row.setCount(4);
    EXPECT_EQ(row.key(), 0);
    EXPECT_FALSE(row.moveKey(SegmentMove::previous));
    EXPECT_TRUE(row.select(2));
    EXPECT_FALSE(row.select(2));
    EXPECT_EQ(row.key(), 2) << "the keyboard follows a choice";
    EXPECT_TRUE(row.moveKey(SegmentMove::next));
    EXPECT_FALSE(row.moveKey(SegmentMove::next)) << "it stops at the end";
    row.setPressed(3);
    row.setCount(3);
    EXPECT_EQ(row.pressed(), std::nullopt);
    EXPECT_EQ(row.key(), 2);
    EXPECT_EQ(row.selected(), 2);
    EXPECT_TRUE(row.select(7)) << "none";
    EXPECT_EQ(row.selected(), std::nullopt);
    row.setCount(0);
    EXPECT_EQ(row.key(), std::nullopt);
}

} // namespace
} // namespace driftwood
