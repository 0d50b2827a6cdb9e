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

} // namespace
} // namespace platform
