#include "core/streams.hpp"

#include <gtest/gtest.h>

#include <string>

namespace core {
namespace {

TEST(Subject, DeliversValuesThenOneCompletion) {
    Subject<int> subject;
    std::string log;
    const auto record = [&] {
        return subject.subscribe([&](int v) { log += std::to_string(v) + " "; },
                                 [&] { log += "end "; });
    };
    const auto early = record();
    subject.send(1);
    subject.send(1);
    subject.finish();
    subject.finish();
    subject.send(2);
    EXPECT_EQ(log, "1 1 end ");
    const auto late = record();
    EXPECT_EQ(log, "1 1 end end ");
    EXPECT_FALSE(late.isActive());
}

TEST(Subject, NothingArrivesAfterTheSubscriptionEnded) {
    Subject<int> subject;
    int values = 0;
    int completions = 0;
    Subscription subscription =
        subject.subscribe([&](int) { subscription.cancel(), ++values; }, [&] { ++completions; });
    subject.send(1);
    subject.send(2);
    subject.finish();
    EXPECT_EQ(values, 1);
    EXPECT_EQ(completions, 0);
}

} // namespace
} // namespace core
