// What the cells of buttons draw, and where.

#include "driftwood/controls/back_button.hpp"
#include "driftwood/controls/dark_highlight_button.hpp"
#include "driftwood/controls/kestrel_push_button.hpp"
#include "driftwood/controls/styled_check_box.hpp"
#include "driftwood/controls/tool_button.hpp"
#include "driftwood/testing/button_testing.hpp"
#include "platform/testing/window_testing.hpp"

#include <gtest/gtest.h>

namespace driftwood {
namespace {

using platform::CellState;
using platform::StateValue;
using platform::testing::largestDifference;
using platform::testing::pixelsOf;
using testing::asset;
using testing::pictureOf;

constexpr int blend = 2; // what rounding may make of one

TEST(ButtonCells, DrawTheBezelOfTheirStateExactly) {
    const CellState rest{.showsState = false};
    const CellState on{.state = StateValue::on};
    const CellState pressed{.showsState = false, .isHighlighted = true};
    const CellState disabledPressed{.showsState = false, .isEnabled = false, .isHighlighted = true};
    StyledButtonCell push;
    BackButtonCell back;
    ToolButtonCell tool;
    StyledCheckBoxCell box;
    FavouriteCheckBoxCell star;
    KestrelPushButtonCell kestrel;
    const QSize size(101, 33);
    const QRectF all(QPointF(), size);
    const QRectF leading(-2, 8, 16, 16);
    const QRectF inner(4, 5, 93, 25);
    const struct {
        platform::ButtonCell& cell;
        CellState state;
        const char* image;
        QRectF place;
        double opacity = 1;
    } cases[] = {
        {push, rest, "dwk-button", all},
        {push, on, "dwk-button-selected", all},
        {push, {.state = StateValue::on, .showsState = false}, "dwk-button", all},
        {push, pressed, "dwk-button-down", all},
        {push, disabledPressed, "dwk-button", all, 0.5},
        {back, pressed, "organiser-navbar-back-down", all},
        {tool, on, "corner-tool-background-selected", all},
        {box, rest, "dwk-checkbox", leading},
        {box, {.state = StateValue::mixed}, "dwk-checkbox-mixed", leading},
        {box, {StateValue::on, true, true, true}, "dwk-checkbox-on-down", leading},
        {box, {StateValue::on, true, false}, "dwk-checkbox-on", leading, 0.5},
        {star, on, "organiser-icon-star", leading},
        {kestrel, rest, "dwk-button", inner},
        {kestrel, disabledPressed, "dwk-button", inner, 0.5},
    };
    for (const auto& [cell, state, image, place, opacity] : cases) {
        cell.setCellState(state);
        for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            EXPECT_LE(largestDifference(pictureOf(cell, size, scale),
                                        pictureOf(image, place, size, scale, opacity)),
                      opacity == 1 ? 0 : blend)
                << image << " at " << scale;
        }
    }
    push.setBordered(false);
    EXPECT_EQ(pixelsOf(pictureOf(push, size), testing::ground), size.width() * size.height());
}

TEST(ButtonCells, TitlesHaveTheColourOfTheStateAndStayInside) {
    StyledButtonCell cell(QStringLiteral("HHHH"));
    cell.setBordered(false);
    const struct {
        CellState state;
        bool isSelected;
        const char* color;
    } cases[] = {
        {{.showsState = false}, false, "Grey 85%"},
        {{.showsState = false}, true, "Grey 100%"},
        {{.showsState = false, .isHighlighted = true}, false, "Grey 50%"},
        {{.state = StateValue::on}, false, "Grey 50%"},
        {{.showsState = false, .isEnabled = false, .isHighlighted = true}, true, "Grey 40%"},
    };
    for (const auto& [state, isSelected, name] : cases) {
        cell.setCellState(state);
        cell.setSelected(isSelected);
        EXPECT_GT(pixelsOf(pictureOf(cell, {80, 24}, 3), testing::kitColor(name)), 40) << name;
    }
    // Too long a title ends before the edge, and never paints outside of its place.
    cell.setTitle(QStringLiteral("A title that is far too long for its button"));
    const core::Rect place = cell.titleRect({{0, 0}, {80, 24}}, false);
    const QImage image = pictureOf(cell, {80, 24}, 1);
    EXPECT_EQ(pixelsOf(image.copy(int(place.maxX()), 0, 80, 24), testing::ground) % 24, 0);
    EXPECT_LT(pixelsOf(image, testing::ground), 80 * 24 - 60);
}

TEST(ButtonCells, RectanglesFollowTheInsetsOfTheStyle) {
    StyledButtonCell cell;
    const auto& star = asset("organiser-icon-star");
    cell.setImage(&star);
    cell.setImagePosition(platform::ImagePosition::imageOnly);
    const core::Rect bounds{{0, 0}, {100, 20}};
    auto& style = StyledButtonCell::style();
    style.setImageEdgeInsets({1, 2, 3, 4});
    EXPECT_EQ(cell.imageRect(bounds, false), (core::Rect{{2, 3}, {94, 16}}));
    // With a title beside it, it returns to the middle.
    cell.setTitle(QStringLiteral("x"));
    cell.setImagePosition(platform::ImagePosition::imageLeading);
    const double height = std::min(16.0, star.size().height());
    EXPECT_EQ(cell.imageRect(bounds, false),
              (core::Rect{{2 + 8, std::round(10 - height / 2)}, {star.size().width(), height}}));

    style.setEdgeInsets({3, 0, 2, 12});
    EXPECT_EQ(cell.drawingRect(bounds), (core::Rect{{0, 2}, {88, 15}}));
    EXPECT_EQ(cell.focusRingMaskBounds(bounds), bounds);
    cell.setBordered(false);
    EXPECT_EQ(cell.drawingRect(bounds), bounds);
    EXPECT_EQ(cell.focusRingMaskBounds(bounds), bounds);

    style.setTitleEdgeInsets({0, 0, 6, 0});
    cell.setImage(nullptr);
    const core::Rect centred = cell.titleRect(bounds, false);
    cell.setVerticallyCenterTitle(false);
    EXPECT_NEAR(cell.titleRect(bounds, false).origin.y, 6 + (14 - centred.size.height) / 2, 1);
    style.setImageEdgeInsets({});
    style.setEdgeInsets({});
    style.setTitleEdgeInsets({});
}

TEST(ButtonCells, CheckBoxesMirrorForRightToLeft) {
    StyledCheckBoxCell cell(QStringLiteral("Box"));
    const core::Rect bounds{{0, 0}, {100, 21}};
    EXPECT_EQ(cell.imageRect(bounds, false), (core::Rect{{-2, 2}, {16, 16}})); // 2.5, truncated
    EXPECT_EQ(cell.imageRect(bounds, true), (core::Rect{{86, 2}, {16, 16}}));
    const core::Rect left = cell.titleRect(bounds, false);
    const core::Rect right = cell.titleRect(bounds, true);
    EXPECT_EQ(left.origin.x, 18);
    EXPECT_EQ(right.maxX(), 82);
    EXPECT_EQ(left.size, right.size);
    EXPECT_LE(left.size.width, 60);
}

TEST(ButtonCells, ImagesFadeAndRefuseUnknownScalings) {
    DarkHighlightButtonCell dark;
    const QSize size(16, 16);
    dark.setImage(&asset("organiser-icon-star"));
    for (const int state : {0, 1, 2, 3}) {
        const bool isEnabled = (state & 1) != 0;
        const bool isHighlighted = (state & 2) != 0;
        dark.setCellState({.isEnabled = isEnabled, .isHighlighted = isHighlighted});
        const double opacity = isEnabled && !isHighlighted ? 1 : 0.5;
        EXPECT_LE(largestDifference(
                      pictureOf(dark, size),
                      pictureOf("organiser-icon-star", QRectF(QPointF(), size), size, 1, opacity)),
                  blend);
    }
    StyledButtonCell styled;
    KestrelPushButtonCell kestrel;
    for (platform::ButtonCell* const cell :
         std::initializer_list<platform::ButtonCell*>{&styled, &kestrel}) {
        cell->setImage(&asset("organiser-icon-star"));
        cell->setImageScaling(static_cast<platform::ImageScaling>(4));
        EXPECT_DEATH(pictureOf(*cell, size), "Fatal error: Unhandled image scaling value\n");
    }
}

TEST(ButtonCells, PointBackWhereOneReadsFromTheRight) {
    BackButtonCell back;
    StyledButtonCell plain(QString{});
    plain.setImage(&asset("organiser-icon-disclose"));
    plain.setBordered(false);
    plain.setImagePosition(platform::ImagePosition::imageOnly);
    for (const double scale : {1.0, 1.5, 2.0}) {
        const auto isMirrored = [scale](const auto& cell, QSize size) {
            const QImage left = pictureOf(cell, size, scale);
            return pictureOf(cell, size, scale, true) == left.mirrored(true, false);
        };
        EXPECT_TRUE(isMirrored(back, {60, 32})) << scale;
        for (const bool follows : {false, true}) {
            plain.setImageFollowsReading(follows);
            EXPECT_EQ(isMirrored(plain, {16, 16}), follows) << scale;
        }
    }
}

TEST(ButtonCells, ToolButtonsMarkWhatLiesBehind) {
    ToolButtonCell cell;
    const QSize size(32, 32);
    const QImage plain = pictureOf(cell, size);
    cell.setShowMoreIcon(true);
    const QImage expected = testing::picture(size, 1, [&](QPainter& painter) {
        platform::paintImage(painter, {0, 0, 32, 32}, asset("corner-tool-background"));
        platform::paintImage(painter, {0, 0, 32, 32}, asset("corner-tool-more"));
    });
    EXPECT_EQ(pictureOf(cell, size), expected);
    EXPECT_NE(plain, expected);
}

} // namespace
} // namespace driftwood
