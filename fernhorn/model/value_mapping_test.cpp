#include "fernhorn/model/value_mapping.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>

namespace fernhorn {

static void PrintTo(const ValueMapping& mapping, std::ostream* stream) {
    *stream << mapping.range.lower << "…" << mapping.range.upper
            << (mapping.increment.isLogarithmic() ? " logarithmic " : " linear ")
            << mapping.increment.midpoint().value_or(0);
}

namespace {

constexpr float largest = std::numeric_limits<float>::max();
constexpr float smallest = std::numeric_limits<float>::denorm_min();
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr auto linear = ValueIncrement::linear();
constexpr auto logarithmic = ValueIncrement::logarithmic();

class ValueMappingTest : public testing::TestWithParam<ValueMapping> {};

TEST_P(ValueMappingTest, HasExactEndsAndNeverTurnsBack) {
    const ValueMapping& mapping = GetParam();
    const auto [lower, upper] = mapping.range;
    EXPECT_EQ(mapping.normalizedPosition(lower), 0);
    EXPECT_EQ(mapping.normalizedPosition(upper), 1);
    EXPECT_EQ(mapping.valueForNormalizedPosition(0), lower);
    EXPECT_EQ(mapping.valueForNormalizedPosition(1), upper);
    constexpr int samples = 1 << 20;
    float formerValue = lower;
    float formerPosition = 0;
    for (int i = 0; i <= samples; ++i) {
        const float position = static_cast<float>(i) / samples;
        const float value = mapping.valueForNormalizedPosition(position);
        const float back = mapping.normalizedPosition(value);
        ASSERT_TRUE(value >= formerValue && value <= upper) << position;
        ASSERT_TRUE(back >= formerPosition && back <= 1) << position;
        ASSERT_NEAR(back, position, 2e-4F);
        formerValue = value;
        formerPosition = back;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Ranges, ValueMappingTest,
    testing::Values(ValueMapping{{0, 1}, linear}, ValueMapping{{-0.1F, 1e8F}, linear},
                    ValueMapping{{-12, 12}, logarithmic}, ValueMapping{{0, 10}, logarithmic},
                    ValueMapping{{-largest, largest}, linear},
                    ValueMapping{{20, 20'000}, logarithmic},
                    ValueMapping{{20, 20'000}, ValueIncrement::logarithmic(1000.0F)},
                    ValueMapping{{0.01F, 10}, ValueIncrement::logarithmic(9.0F)},
                    ValueMapping{{1e-30F, 1e30F}, ValueIncrement::logarithmic(1e20F)}));

TEST(ValueMapping, FollowsItsFormulas) {
    struct Case {
        ValueMapping mapping;
        float value;
        float position;
    };
    const ValueMapping bent{{20, 20'000}, ValueIncrement::logarithmic(1000.0F)};
    const Case cases[] = {
        {{{-1, 3}, linear}, 0, 0.25F},
        {{{-1, 3}, logarithmic}, 0, 0.25F},
        {{{1, 100}, logarithmic}, 10, 0.5F},
        {{{1, 10'000}, logarithmic}, 10, 0.25F},
        {bent, 1000, 0.5F},
        {{{20, 20'000}, ValueIncrement::logarithmic(20.0F)}, 632.4555F, 0.5F},
        {{{20, 20'000}, ValueIncrement::logarithmic(nan)}, 632.4555F, 0.5F},
        {{{-2, 2}, ValueIncrement::logarithmic(1.0F)}, 0, 0.5F},
        {{{-1, 3}, linear}, 7, 2}, // beyond the end
    };
    for (const auto& [mapping, value, position] : cases) {
        EXPECT_FLOAT_EQ(mapping.normalizedPosition(value), position)
            << testing::PrintToString(mapping);
        EXPECT_NEAR(mapping.valueForNormalizedPosition(position), value,
                    1e-5F * std::abs(value) + 1e-6F)
            << testing::PrintToString(mapping);
    }
    EXPECT_TRUE(std::isnan(bent.normalizedPosition(nan)));
    EXPECT_TRUE(std::isnan(bent.normalizedPosition(-1)));
    for (const float outside : {20.0F, 20'000.0F, -5.0F, nan, infinity}) {
        EXPECT_EQ(bent.midpointExponent(outside), std::nullopt) << outside;
    }
    // ln 2 / -ln(ln 50 / ln 1000)
    EXPECT_FLOAT_EQ(bent.midpointExponent(1000).value(), 1.2190626F);
}

TEST(ValueMapping, ARangeWithoutTravelStaysAtItsLowerBound) {
    for (const ValueMapping& mapping :
         {ValueMapping{{3, 3}, linear}, ValueMapping{{3, 3}, ValueIncrement::logarithmic(3.0F)},
          ValueMapping{{3, infinity}, linear}, ValueMapping{{3, infinity}, logarithmic}}) {
        for (const float any : {0.0F, 0.5F, 1.0F, 3.0F, -infinity, nan}) {
            EXPECT_EQ(mapping.normalizedPosition(any), 0);
            EXPECT_EQ(mapping.valueForNormalizedPosition(any), 3);
            EXPECT_EQ(mapping.imageIndex(any, 31), 1);
        }
    }
}

TEST(ValueMapping, ChoosesTheFrameOfAStrip) {
    const ValueMapping unit{{0, 1}, linear};
    const struct {
        float value;
        int count;
        int frame;
    } cases[] = {{0, 31, 1},
                 {1, 31, 31},
                 {0.5F, 31, 16},
                 {0.25F, 3, 2},
                 {0.2499F, 3, 1},
                 {0.75F, 3, 3},
                 {-9, 31, 1},
                 {9, 31, 31},
                 {0.7F, 1, 1},
                 {smallest, 2, 1},
                 {1, 2147483647, 2147483647},
                 // The last number below 0.5 plus 1 is 1.5 in 32-bit arithmetic.
                 {0.49999997F, 2, 2}};
    for (const auto& [value, count, frame] : cases) {
        EXPECT_EQ(unit.imageIndex(value, count), frame) << value << " of " << count;
    }
    EXPECT_DEATH((void)unit.imageIndex(0, 0), "at least one frame");
    for (const float none : {nan, infinity, -infinity, largest}) {
        EXPECT_DEATH((void)unit.imageIndex(none, 31), "No film strip frame") << none;
    }
}

} // namespace
} // namespace fernhorn
