#include "core/observable.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <vector>

namespace core {
namespace {

TEST(Observable, NotifiesOnlyWhenTheValueDiffers) {
    Observable<float> value(1.0F);
    std::vector<float> seen;
    const auto subscription = value.observe([&](float v) { seen.push_back(v); });
    value.set(1.0F);
    value.set(2.0F);
    value.set(2.0F);
    EXPECT_EQ(seen, (std::vector<float>{2.0F}));

    value.set(-0.0F); // differs from 2, then equals +0
    value.set(0.0F);
    EXPECT_EQ(seen.size(), 2U);
    EXPECT_FALSE(std::signbit(value.value())) << "an equal value is stored all the same";
}

TEST(Observable, ObserversMayComeAndGoDuringANotification) {
    Observable<int> value(0);
    std::vector<int> calls;
    Subscription second;
    Subscription added;
    auto first = value.observe([&](int) {
        calls.push_back(1);
        second.cancel();
        added = value.observe([&](int) { calls.push_back(3); });
    });
    second = value.observe([&](int) { calls.push_back(2); });
    value.set(1);
    EXPECT_EQ(calls, (std::vector<int>{1})) << "neither the removed nor the added one is called";
    first.cancel();
    value.set(2);
    EXPECT_EQ(calls, (std::vector<int>{1, 3}));
}

TEST(Observable, MayBeDestroyedByItsObserverAndBeforeItsSubscription) {
    auto value = std::make_optional<Observable<int>>(0);
    int after = 0;
    const auto first = value->observe([&](int) { value.reset(); });
    const auto second = value->observe([&](int) { ++after; });
    value->set(1);
    EXPECT_FALSE(value.has_value());
    EXPECT_EQ(after, 1) << "the others still hear of the change";
}

TEST(Observable, SettingFromAnObserverEndsAtTheInnermostValue) {
    Observable<int> value(0);
    std::vector<int> seen;
    const auto clamp = value.observe([&](int v) { value.set(std::min(v, 10)); });
    const auto record = value.observe([&](int v) { seen.push_back(v); });
    value.set(50);
    EXPECT_EQ(value.value(), 10);
    EXPECT_EQ(seen.back(), 10);
}

} // namespace
} // namespace core
