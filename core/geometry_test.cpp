#include "core/geometry.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>

namespace core {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

Rect rect(double x, double y, double width, double height) {
    return {{x, y}, {width, height}};
}

TEST(Geometry, AnswersTheKnownCases) {
    const Rect box = rect(100, 100, 30, 30);
    const Rect hundred = rect(0, 0, 100, 100);
    const struct {
        Rect result;
        Rect expected;
    } cases[] = {
        {integral(rect(0.3, 0.3, 10.2, 10.2), 2), rect(0, 0, 10.5, 10.5)},
        {integral(rect(0.3, 0.3, 10.2, 10.2), 0), rect(0.3, 0.3, 10.2, 10.2)},
        {integral(rect(-0.5, 3, 1, -1.5)), rect(-1, 3, 2, -1)}, // turned round by nothing
        {center(rect(7, 7, 10, 10), box, 1), rect(10, 10, 10, 10)},
        {center(rect(0, 0, 9, 40), box, 1), rect(11, -5, 9, 40)},  // 10.5 up, -5 as it is
        {center(rect(0, 0, 30, 33), box, 1), rect(0, -2, 30, 33)}, // -1.5 away from zero
        {center(rect(0, 0, 9, 9), box, 2), rect(10.5, 10.5, 9, 9)},
        {center(rect(0, 0, 9.25, 9), box, 1), rect(10, 11, 10, 9)}, // 10.375, then outward
        {centerX(rect(3, 4, 10, 10), box, 1), rect(110, 4, 10, 10)},
        {centerX(rect(3, 4, 9, 10), box, 2), rect(110, 4, 10, 10)}, // 110.5 on pixels, then points
        {centerX(rect(3, 4, 4, 10), rect(0, 0, 20, 1), 1, ClosedRange{0, 5}), rect(5, 4, 4, 10)},
        {centerY(rect(3, 4, 10, 9), box, 2), rect(3, 110, 10, 10)},
        {fit(rect(90, 90, 20, 20), hundred), rect(80, 80, 20, 20)},
        {fit(rect(-5, 10, 20, 20), hundred), rect(0, 10, 20, 20)},
        {fit(rect(5, 5, 120, 20), hundred), rect(0, 5, 120, 20)},
        {inset(rect(0, 0, 100, 20), {1, 2, 3, 4}, false), rect(2, 3, 94, 16)},
        {inset(rect(0, 0, 100, 20), {1, 2, 3, 4}, true), rect(2, 1, 94, 16)},
        {inset(rect(0, 0, 9, 9), {0.5, 0, 0, 0}, true), rect(0, 0, 9, 9)},
        {atLeastEmpty(inset(rect(0, 0, 4, 4), {3, 3, 3, 3}, false)), rect(3, 3, 0, 0)},
        {outset(rect(2, 3, 94, 16), {1, 2, 3, 4}, false), rect(0, 0, 100, 20)},
        {rect(1, 2, 3, 4) / 0.5, rect(2, 4, 6, 8)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.result, c.expected) << "case " << &c - cases;
    }
    EXPECT_TRUE(std::isnan(center(rect(0, 0, 10, 10), box, 0).origin.x));
    EXPECT_EQ(center(rect(0, 0, 10, 10), box, 0).size, (Size{10, 10}));
    EXPECT_EQ(inset(Size{10, 9.5}, {1, 2, 3, 4}), (Size{4, 5.5}));
    EXPECT_EQ(componentwiseMax(Point{1, -4}, {0, 5}), (Point{1, 5}));
    EXPECT_EQ(componentwiseMin(Size{1, 4}, {0, 5}), (Size{0, 4}));
    EXPECT_EQ(maxPoint(box) / 2, (Point{65, 65}));
    EXPECT_FALSE(hasNonZeroDimensions(rect(1, 1, 0, 5)));
    EXPECT_TRUE(hasNonZeroDimensions(rect(0, 0, -1, 5)));
}

TEST(Geometry, HoldsForRandomRectangles) {
    std::mt19937 random(2);
    std::uniform_real_distribution<double> place(-500, 500);
    std::uniform_real_distribution<double> length(0, 300);
    const std::array scales{1.0, 1.25, 1.5, 2.0, 3.0};
    constexpr double small = 1e-9;
    const auto contains = [](const Rect& outer, const Rect& inner) {
        return outer.origin.x <= inner.origin.x + small &&
               outer.origin.y <= inner.origin.y + small && outer.maxX() >= inner.maxX() - small &&
               outer.maxY() >= inner.maxY() - small;
    };
    for (int i = 0; i < 20'000; ++i) {
        const Rect r = rect(place(random), place(random), length(random), length(random));
        const Rect box = rect(place(random), place(random), length(random), length(random));
        const double scale = scales[static_cast<std::size_t>(i) % scales.size()];

        const Rect whole = integral(r, scale);
        EXPECT_TRUE(contains(whole, r));
        EXPECT_LT(whole.size.width, r.size.width + 2 / scale);
        for (const double edge : {whole.origin.x, whole.origin.y, whole.maxX(), whole.maxY()}) {
            EXPECT_NEAR(edge * scale, std::round(edge * scale), 1e-7);
        }

        const Rect fitted = fit(r, box);
        EXPECT_EQ(fitted.size, r.size);
        if (r.size.width <= box.size.width && r.size.height <= box.size.height) {
            EXPECT_TRUE(contains(box, fitted));
        }
        EXPECT_TRUE(!contains(box, r) || contains(r, fitted)) << "what fits stays";

        const EdgeInsets insets{std::floor(length(random)), 3, std::floor(length(random)), 8};
        const bool flipped = i % 2 == 0;
        EXPECT_EQ(inset(outset(r, insets, flipped), insets, flipped), integral(r));

        EXPECT_NEAR(midPoint(centerX(r, box, scale)).x, midPoint(box).x, 0.5 / scale + 1);
        EXPECT_NEAR(center(r, box, scale).origin.x + r.size.width / 2, box.size.width / 2,
                    1.5 / scale + small);
    }
}

TEST(GeometryDeathTest, RefusesRangesThatAreNone) {
    for (const ClosedRange range : {ClosedRange{nan, 5}, {0, nan}, {5, 0}}) {
        EXPECT_DEATH(static_cast<void>(centerX({}, {}, 1, range)), "needs a range");
    }
}

} // namespace
} // namespace core
