#include "platform/controls/button_geometry.hpp"

#include <gtest/gtest.h>

#include <ostream>

namespace core {
void PrintTo(const Rect& r, std::ostream* out) {
    *out << '(' << r.origin.x << ", " << r.origin.y << ", " << r.size.width << ", " << r.size.height
         << ')';
}
} // namespace core

namespace platform {
namespace {

using core::Rect;

TEST(ButtonGeometry, CentresOnTheBoundsAndRoundsItsPlace) {
    EXPECT_EQ(centeredVertically({{5, 90}, {10, 13}}, {{0, 0}, {100, 24}}),
              (Rect{{5, 6}, {10, 13}})); // 5.5 rounds away from zero
    EXPECT_EQ(centeredVertically({{5.5, 0}, {10, 12}}, {{0, 10}, {100, 24}}),
              (Rect{{5, 16}, {11, 12}}));
}

TEST(ButtonGeometry, ImageAndTitleShareTheBounds) {
    const Rect bounds{{0, 0}, {100, 30}};
    const struct {
        ImagePosition position;
        bool isRightToLeft;
        Rect image;
        Rect title;
    } cases[] = {
        {ImagePosition::imageLeft, true, {{8, 7}, {16, 16}}, {{28, 9}, {64, 12}}},
        {ImagePosition::imageRight, true, {{76, 7}, {16, 16}}, {{8, 9}, {64, 12}}},
        {ImagePosition::imageLeading, false, {{8, 7}, {16, 16}}, {{28, 9}, {64, 12}}},
        {ImagePosition::imageLeading, true, {{76, 7}, {16, 16}}, {{8, 9}, {64, 12}}},
        {ImagePosition::imageTrailing, false, {{76, 7}, {16, 16}}, {{8, 9}, {64, 12}}},
        {ImagePosition::imageTrailing, true, {{8, 7}, {16, 16}}, {{28, 9}, {64, 12}}},
        {ImagePosition::imageAbove, false, {{42, -1}, {16, 16}}, {{8, 19}, {84, 12}}},
        {ImagePosition::imageBelow, false, {{42, 15}, {16, 16}}, {{8, -1}, {84, 12}}},
        {ImagePosition::imageOverlaps, false, {{42, 7}, {16, 16}}, {{8, 9}, {84, 12}}},
        {ImagePosition::imageOnly, false, {{42, 7}, {16, 16}}, {{8, 9}, {84, 12}}},
        {ImagePosition::noImage, false, {{0, 0}, {0, 0}}, {{8, 9}, {84, 12}}},
    };
    for (const auto& [position, isRightToLeft, image, title] : cases) {
        const ButtonParts parts{{16, 16}, {40, 12}, position, isRightToLeft, 8};
        EXPECT_EQ(defaultImageRect(bounds, parts), image) << static_cast<int>(position);
        EXPECT_EQ(defaultTitleRect(bounds, parts), title) << static_cast<int>(position);
    }
    // One that is too large is cut down to the bounds.
    EXPECT_EQ(defaultImageRect(bounds, {{200, 200}, {}, ImagePosition::imageLeft}), bounds);
}

TEST(ButtonGeometry, NaturalSizeHoldsWhatIsShown) {
    const auto size = [](ImagePosition position, core::Size title) {
        return naturalSize({{16, 20}, title, position, false, 5});
    };
    EXPECT_EQ(size(ImagePosition::imageLeft, {40.2, 12}), (core::Size{71, 20}));
    EXPECT_EQ(size(ImagePosition::imageLeft, {}), (core::Size{26, 20}));
    EXPECT_EQ(size(ImagePosition::imageAbove, {40, 12}), (core::Size{50, 36}));
    EXPECT_EQ(size(ImagePosition::imageOnly, {40, 12}), (core::Size{26, 20}));
    EXPECT_EQ(size(ImagePosition::noImage, {40, 12}), (core::Size{50, 12}));
}

TEST(ButtonGeometry, ABezelGivesTheSize) {
    const core::EdgeInsets insets{3, 2, 3, 2};
    using enum BezelRule;
    const struct {
        BezelRule rule;
        core::Size natural, image;
        std::optional<double> fixedWidth;
        core::Size size;
    } cases[] = {
        {tallAsImageOrFixedWidth, {10, 30}, {24, 24}, {}, {20, 18}},
        {tallAsImageOrFixedWidth, {50, 12}, {24, 24}, {}, {46, 18}},
        {tallAsImageOrFixedWidth, {50, 12}, {24, 24}, 10, {6, 18}},
        {tallAsImageOrFixedWidth, {50, 12}, {}, 10, {10, 12}},
        {tallAsImage, {50, 12}, {24, 24}, 10, {20, 18}},
        {tallAsImage, {50, 12}, {24, 24}, {}, {46, 18}},
        {atLeastImage, {50, 12}, {24, 24}, {}, {46, 18}},
        {atLeastImage, {50, 32}, {24, 24}, {}, {46, 26}},
        {atLeastImage, {50, 12}, {24, 24}, 10, {10, 18}},
    };
    for (const auto& [rule, natural, image, fixedWidth, size] : cases) {
        EXPECT_EQ(bezelSize(natural, image, insets, fixedWidth, rule), size)
            << static_cast<int>(rule) << ' ' << natural.height;
    }
}

TEST(ButtonGeometry, ImagesAreDrawnByTheirScaling) {
    const Rect frame{{10, 4}, {31, 20}};
    for (const auto unscaled :
         {ImageScaling::proportionallyDown, ImageScaling::proportionallyUpOrDown}) {
        EXPECT_EQ(scaledImageRect(frame, {16, 16}, unscaled), (Rect{{10, 4}, {16, 16}}));
        EXPECT_EQ(scaledImageRect(frame, {90, 90}, unscaled), (Rect{{10, 4}, {90, 90}}));
        EXPECT_EQ(scaledImageRect({{-60, 0}, {31, 20}}, {16, 16}, unscaled),
                  (Rect{{-45, 0}, {16, 16}})); // the frame ends left of zero
    }
    EXPECT_EQ(scaledImageRect(frame, {16, 16}, ImageScaling::axesIndependently), frame);
    EXPECT_EQ(scaledImageRect(frame, {16, 15}, ImageScaling::none), (Rect{{17, 6}, {16, 15}}));
    EXPECT_EQ(scaledImageRect(frame, {36, 25}, ImageScaling::none),
              (Rect{{8, 2}, {36, 25}})); // toward zero, not down
    for (const int value : {-1, 4, 1000}) {
        EXPECT_DEATH((void)scaledImageRect(frame, {16, 16}, static_cast<ImageScaling>(value)),
                     "Fatal error: Unhandled image scaling value\n");
    }
}

} // namespace
} // namespace platform
