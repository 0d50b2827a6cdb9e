#include "platform/controls/current_event.hpp"
#include "platform/controls/pan_recognizer.hpp"
#include "platform/controls/wheel_unit.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace platform {
namespace {

core::Instant at(double milliseconds) {
    return core::Instant(core::Seconds(milliseconds / 1000));
}

TEST(PanRecognizer, TellsAPanFromAClick) {
    using enum PanState;
    using Points = std::vector<core::Point>;
    // d(own), m(ove), u(p) at these points, c(ancel).
    const struct {
        const char* name;
        std::string steps;
        Points points;
        std::vector<PanState> states;
    } cases[] = {
        {"click", "dmu", {{5, 5}, {8, 2}, {8, 2}}, {possible, possible, failed}},
        {"pan", "dmmu", {{5, 5}, {5, 1.9}, {5, 5}, {5, 5}}, {possible, began, changed, ended}},
        {"taken away", "dmcu", {{}, {9, 0}, {}, {9, 0}}, {possible, began, cancelled, cancelled}},
        {"taken away early", "dcm", {{}, {}, {9, 0}}, {possible, failed, failed}},
        {"no press", "muc", {{9, 0}, {9, 0}, {}}, {possible, possible, possible}},
        {"a second press", "dmd", {{}, {9, 0}, {50, 0}}, {possible, began, began}},
        {"and again",
         "dmudmu",
         {{}, {9, 0}, {9, 0}, {9, 0}, {11, 0}, {11, 0}},
         {possible, began, ended, possible, possible, failed}},
    };
    for (const auto& [name, steps, points, expected] : cases) {
        PanRecognizer pan;
        std::vector<PanState> states;
        for (std::size_t i = 0; i < steps.size(); ++i) {
            const auto time = at(10 * static_cast<double>(i));
            states.push_back(steps[i] == 'd'   ? pan.press(points[i], time)
                             : steps[i] == 'm' ? pan.move(points[i], time)
                             : steps[i] == 'u' ? pan.release(points[i], time)
                                               : pan.cancel());
            EXPECT_EQ(pan.state(), states.back());
        }
        EXPECT_EQ(states, expected) << name;
    }
}

TEST(PanRecognizer, MeasuresVelocityOverTheLastMoment) {
    PanRecognizer pan;
    pan.press({0, 0}, at(0));
    for (int i = 1; i <= 40; ++i) { // more than are kept, at 1,000 points a second
        pan.move({0, -i * 4.0}, at(i * 4));
        EXPECT_NEAR(pan.velocity().y, -1000, 1e-6) << i;
    }
    pan.move({0, -160}, at(160)); // no time has passed
    EXPECT_NEAR(pan.velocity().y, -1000, 1e-6);
    pan.move({0, -161}, at(660)); // a rest, then a creep
    EXPECT_NEAR(pan.velocity().y, -2, 1e-6);
    pan.move({30, -161}, at(690));
    EXPECT_NEAR(pan.velocity().x, 1000, 1e-6) << "what came before the rest is forgotten";
    EXPECT_EQ(pan.release({30, -161}, at(700)), PanState::ended);
    EXPECT_GT(pan.velocity().x, 500);
    pan.press({0, 0}, at(800));
    EXPECT_EQ(pan.velocity(), core::Point{});
}

TEST(PanRecognizer, TranslationCountsFromWhereItIsSet) {
    PanRecognizer pan;
    pan.press({10, 10}, at(0));
    pan.move({20, 5}, at(10));
    EXPECT_EQ(pan.translation(), (core::Point{10, -5}));
    pan.setTranslation({50, 60});
    pan.move({21, 5}, at(20));
    EXPECT_EQ(pan.translation(), (core::Point{51, 60}));
}

TEST(Wheel, OneUnitForEveryControl) {
    const struct {
        WheelTurn turn;
        double byHand;
        core::Point scrolling;
    } cases[] = {
        {{{0, 120}}, 1, {0, 10}},
        {{{0, -30}}, -0.25, {0, -2.5}},
        {{{0, 120}, true}, -1, {0, 10}},       // natural: the content goes the other way
        {{{-240, 0}}, -2, {-20, 0}},           // turned sideways by the system
        {{{240, 120}}, 1, {20, 10}},           // both: up and down counts
        {{{0, 120}, false, true}, 0, {0, 10}}, // nobody's hand any more
        {{}, 0, {}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(notchesByHand(c.turn), c.byHand);
        EXPECT_EQ(scrollingDelta(c.turn), c.scrolling);
    }
}

TEST(CurrentEvent, IsThereWhileItIsDispatched) {
    EXPECT_EQ(currentEvent(), nullptr);
    {
        const EventDispatch press({EventKind::leftMouseDown, {.shift = true}});
        {
            const EventDispatch key({EventKind::keyDown, {}}); // from a loop within an action
            EXPECT_EQ(currentEvent()->kind, EventKind::keyDown);
        }
        EXPECT_EQ(*currentEvent(), (InputEvent{EventKind::leftMouseDown, {.shift = true}}));
    }
    EXPECT_EQ(currentEvent(), nullptr);
}

} // namespace
} // namespace platform
