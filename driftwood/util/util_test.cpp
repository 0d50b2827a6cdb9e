#include "driftwood/util/action_trampoline.hpp"
#include "driftwood/util/control_publisher.hpp"
#include "driftwood/util/control_size.hpp"
#include "driftwood/util/date_util.hpp"
#include "driftwood/util/degree_util.hpp"
#include "driftwood/util/shake_effect.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace driftwood {
namespace {

class Button : public platform::Control {
  public:
    int presses = 0;
};
class Slider final : public platform::Control {};

TEST(ControlPublisher, IsTheOneTargetOfItsControlAndCompletesWithIt) {
    auto button = std::make_unique<Button>();
    auto& publisher = controlEventPublisher(*button);
    EXPECT_EQ(&controlEventPublisher(*button), &publisher);
    std::string log;
    const auto subscription =
        publisher.subject().subscribe([](Button* sender) { ++sender->presses; },
                                      [&] {
                                          log += "end";
                                          EXPECT_FALSE(publisher.control());
                                      });
    button->sendAction();
    button->sendAction();
    EXPECT_EQ(button->presses, 2);
    setActionFunction(*button, [](Button& sender) { sender.presses += 10; });
    button->sendAction();
    EXPECT_EQ(button->presses, 12) << "one target at a time";
    EXPECT_EQ(&controlEventPublisher(*button), &publisher);
    button.reset();
    EXPECT_EQ(log, "end");
}

TEST(ControlPublisher, MayLoseItsControlWhileItSends) {
    auto button = std::make_unique<Button>();
    int values = 0;
    int ends = 0;
    const auto subscription = controlEventPublisher(*button).subject().subscribe(
        [&](Button*) {
            ++values;
            button.reset();
        },
        [&] { ++ends; });
    button->sendAction();
    EXPECT_EQ(values, 1);
    EXPECT_EQ(ends, 1);
}

TEST(ControlPublisher, IsTheSameThroughEveryTypeOfItsControl) {
    for (const bool isDerivedFirst : {true, false}) {
        Button button;
        platform::Control& base = button;
        if (isDerivedFirst) {
            static_cast<void>(controlEventPublisher(button));
        }
        auto& general = controlEventPublisher(base);
        auto& special = controlEventPublisher(button);
        EXPECT_TRUE(general == special);
        int values = 0;
        const auto first = general.subject().subscribe([&](platform::Control* sender) {
            EXPECT_EQ(sender, &base);
            ++values;
        });
        const auto second = special.subject().subscribe([&](Button* sender) {
            EXPECT_EQ(sender, &button);
            ++values;
        });
        button.sendAction();
        EXPECT_EQ(values, 2);
    }
}

TEST(ActionTrampoline, IsReplacedByTheNextEvenWhileItRuns) {
    Button button;
    auto token = std::make_shared<int>(0);
    setActionFunction(button, [token](Button& sender) {
        sender.presses += 1;
        setActionFunction(sender, [](Button& again) { again.presses += 100; });
        *token += 1; // still there
    });
    button.sendAction();
    button.sendAction();
    EXPECT_EQ(button.presses, 101);
    EXPECT_EQ(token.use_count(), 1);
}

TEST(UtilDeathTest, StopsAtWrongTypesAndSizes) {
    Slider slider;
    ActionTrampoline<Button> trampoline([](Button&) {});
    EXPECT_DEATH(trampoline.actionWithSender(slider), "sender of another type");
    EXPECT_DEATH(static_cast<void>(swiftUIControlSize(static_cast<CellControlSize>(5))),
                 "Fatal error: Unhandled control size: 5\n");
    EXPECT_DEATH(static_cast<void>(nsControlSize(static_cast<ControlSize>(9))),
                 "Fatal error: Unhandled control size: 9\n");
}

TEST(ControlSize, ComesBackExceptFromExtraLarge) {
    for (int raw = 0; raw <= 4; ++raw) {
        const auto size = static_cast<CellControlSize>(raw);
        EXPECT_EQ(static_cast<int>(nsControlSize(swiftUIControlSize(size))), raw == 4 ? 3 : raw);
    }
    EXPECT_EQ(nsControlSize(ControlSize::extraLarge), CellControlSize::large);
    EXPECT_EQ(swiftUIControlSize(static_cast<CellControlSize>(2)), ControlSize::mini);
}

TEST(DegreeUtil, NormalisesToTheHalfOpenCircle) {
    const struct {
        double degrees;
        double expected;
    } cases[] = {{540, 180},   {-180, 180}, {190, -170}, {180, 180},
                 {-179, -179}, {-541, 179}, {720, 0},    {0.25, 0.25}};
    for (const auto& c : cases) {
        EXPECT_EQ(DegreeUtil::normalise(c.degrees), c.expected) << c.degrees;
    }
    EXPECT_TRUE(std::isnan(DegreeUtil::normalise(INFINITY)));
    EXPECT_DOUBLE_EQ(DegreeUtil::degreesToRadians(90), std::acos(0.0));
}

TEST(DateUtil, MeasuresInBothDirections) {
    using namespace std::chrono_literals;
    const DateUtil::Date now = std::chrono::sys_days(std::chrono::year(2024) / 2 / 29);
    for (const DateUtil::Date date : {now - 1min, now + 1min}) {
        EXPECT_TRUE(DateUtil::hasMoreThan(core::Seconds(59), date, false, now));
        EXPECT_TRUE(DateUtil::hasLessThan(core::Seconds(61), date, false, now));
        EXPECT_FALSE(DateUtil::hasMoreThan(core::Seconds(60), date, true, now));
        EXPECT_FALSE(DateUtil::hasLessThan(core::Seconds(60), date, true, now));
    }
    for (const bool fallback : {true, false}) {
        EXPECT_EQ(DateUtil::hasMoreThan(core::Seconds(60), {}, fallback), fallback);
        EXPECT_EQ(DateUtil::hasLessThan(core::Seconds(60), {}, fallback), fallback);
    }
    EXPECT_TRUE(DateUtil::hasMoreThan(time_units::weeks(1), DateUtil::Date::min(), false, now));
    EXPECT_TRUE(
        DateUtil::hasLessThan(time_units::minute(1), std::chrono::system_clock::now(), false));
    EXPECT_EQ(time_units::weeks(2) + time_units::milliseconds(250), core::Seconds(1209600.25));
}

TEST(ShakeEffect, SwingsAndComesToRest) {
    ShakeEffect effect{10, 3, 0};
    double leftmost = 0;
    double rightmost = 0;
    for (int step = 0; step <= 600; ++step) {
        effect.animatableData = step / 600.0;
        leftmost = std::min(leftmost, effect.translation().x);
        rightmost = std::max(rightmost, effect.translation().x);
    }
    EXPECT_NEAR(effect.translation().x, 0, 1e-12);
    EXPECT_NEAR(leftmost, -10, 1e-3);
    EXPECT_NEAR(rightmost, 10, 1e-3);
}

} // namespace
} // namespace driftwood
