#include "platform/controls/control.hpp"

#include <gtest/gtest.h>

#include <optional>

namespace platform {
namespace {

class Counter final : public ActionTarget {
  public:
    void count(Control& sender) {
        ++calls;
        last = &sender;
    }
    int calls = 0;
    Control* last = nullptr;
};

TEST(Control, SendsOneActionToOneLivingTarget) {
    Control control;
    EXPECT_FALSE(control.sendAction());
    std::optional<Counter> first(std::in_place);
    Counter second;
    control.setAction(&Counter::count, *first);
    EXPECT_TRUE(control.sendAction());
    EXPECT_EQ(first->last, &control);
    control.setAction(&Counter::count, second);
    control.sendAction();
    EXPECT_EQ(first->calls, 1);
    EXPECT_EQ(second.calls, 1);
    control.setAction(&Counter::count, *first);
    first.reset();
    EXPECT_FALSE(control.sendAction());
    EXPECT_EQ(control.target(), nullptr);
}

TEST(Control, AnActionMayReplaceItselfAndDestroyItsControl) {
    auto control = std::make_unique<Control>();
    Counter counter;
    int calls = 0;
    control->setAction(
        [&](ActionTarget& target, Control& sender) {
            sender.setAction(&Counter::count, static_cast<Counter&>(target));
            control.reset();
            ++calls;
        },
        counter);
    EXPECT_TRUE(control->sendAction());
    EXPECT_EQ(calls, 1);
}

TEST(Control, AssociatedObjectsLiveUntilReplacedOrWithTheControl) {
    auto control = std::make_unique<Control>();
    const auto one = std::make_shared<int>(1);
    const auto two = std::make_shared<int>(2);
    control->setAssociatedObject("key", one);
    control->setAssociatedObject("key", two);
    EXPECT_EQ(one.use_count(), 1);
    EXPECT_EQ(control->associatedObject("key"), two);
    EXPECT_EQ(control->associatedObject("other"), nullptr);
    control.reset();
    EXPECT_EQ(two.use_count(), 1);
}

} // namespace
} // namespace platform
