#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/controls/clickable_image_view.hpp"
#include "driftwood/controls/simple_views.hpp"
#include "driftwood/controls/styled_segmented_control.hpp"
#include "platform/testing/window_testing.hpp"

#include <QLineEdit>
#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

namespace driftwood {
namespace {

using platform::testing::showActive;
using State = StyledControlState;

const platform::ImageAsset& asset(const char* name) {
    return *resourceBundle().assets().image(QString::fromLatin1(name));
}

TEST(SegmentedCells, TakeEachSegmentsLookFromItsState) {
    StyledSegmentedCell cell;
    cell.setLabels({QStringLiteral("A"), QStringLiteral("B")});
    struct Case {
        std::optional<int> selected, pressed;
        bool hides, enabled;
        State expected; // of the first segment
        const char* image;
        const Color& text;
    };
    const auto& style = StyledSegmentedCell::style();
    const Case cases[] = {
        {{}, {}, false, true, State::default_, "dwk-window-tab", style.textColor()},
        {0,
         {},
         false,
         true,
         State::default_ | State::selected,
         "dwk-window-tab-selected",
         style.selectedTextColor()},
        {0, {}, true, true, State::default_, "dwk-window-tab", style.textColor()},
        {1, 0, false, true, State::default_ | State::highlighted, "dwk-window-tab-down",
         style.highlightedTextColor()},
        {1, 0, false, false, State::default_ | State::highlighted | State::disabled,
         "dwk-window-tab-down", style.disabledTextColor()},
    };
    for (const Case& c : cases) {
        cell.row().select(c.selected);
        cell.row().setPressed(c.pressed);
        cell.setHideSelection(c.hides);
        cell.setCellState({.isEnabled = c.enabled});
        EXPECT_EQ(cell.segmentState(0), c.expected);
        EXPECT_EQ(toImageAsset(style.bezelImage(cell.segmentState(0))), &asset(c.image)) << c.image;
        EXPECT_EQ(style.textColor(cell.segmentState(0)), c.text) << c.image;
    }
}

TEST(SegmentedCells, AreAsWideAsTheirLabelsAndHaveNoRingBeforeTheyAreDrawn) {
    StyledSegmentedControl control({QStringLiteral("Envelope"), QString()});
    StyledSegmentedCell& cell = control.styledCell();
    platform::LineText text;
    const double label =
        text.size(QStringLiteral("Envelope"), toQFont(StyledSegmentedCell::style().font())).width;
    control.setWidth(500, 0);
    control.setWidth(50, 1);
    EXPECT_EQ(cell.width(0), label + 42);
    EXPECT_EQ(cell.width(1), 50);
    EXPECT_EQ(control.intrinsicContentSize(), (core::Size{std::ceil(label + 92), 28}));

    EXPECT_EQ(cell.focusRingMaskBounds({}), core::Rect());
    QImage image(300, 40, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    cell.row().setKey(1);
    cell.draw({{0, 0}, {300, 40}}, {painter, Qt::white});
    const core::Rect frame = cell.cachedSegmentFrames().at(1);
    EXPECT_EQ(cell.focusRingMaskBounds({}),
              (core::Rect{{frame.origin.x, 6}, {frame.size.width, 28}}))
        << "the content's, whatever the frame";
}

class SegmentedControls : public ::testing::Test, public platform::ActionTarget {
  protected:
    SegmentedControls() {
        control.setAction(
            [this](ActionTarget&, platform::Control&) {
                log += control.selectedSegment() ? std::to_string(*control.selectedSegment()) : "-";
            },
            *this);
        control.resize(control.sizeHint());
        control.move(20, 40);
        showActive(window);
    }
    QPoint middleOf(int segment) {
        return control.accessibleParts()[static_cast<std::size_t>(segment)].place.center();
    }

    QWidget window;
    StyledSegmentedControl control{
        {QStringLiteral("Osc"), QStringLiteral("Filter"), QStringLiteral("Amp")}, &window};
    std::string log;
};

TEST_F(SegmentedControls, SelectByClickAndByKeysAndNotByHalfAClick) {
    QTest::mouseClick(&control, Qt::LeftButton, {}, middleOf(1));
    QTest::mousePress(&control, Qt::LeftButton, {}, middleOf(2));
    EXPECT_EQ(control.styledCell().row().pressed(), 2);
    QTest::mouseMove(&control, middleOf(0));
    EXPECT_EQ(control.styledCell().row().pressed(), std::nullopt) << "no other one is pressed";
    QTest::mouseRelease(&control, Qt::LeftButton, {}, middleOf(0));
    EXPECT_EQ(log, "1");

    control.setFocus(Qt::TabFocusReason);
    const auto keys = [&](std::initializer_list<Qt::Key> all) {
        for (const Qt::Key key : all) {
            QTest::keyClick(&control, key);
        }
    };
    keys({Qt::Key_Right, Qt::Key_Right, Qt::Key_Space, Qt::Key_Home, Qt::Key_Return});
    EXPECT_EQ(log, "120") << "moving alone selects nothing";
    control.setLayoutDirection(Qt::RightToLeft);
    keys({Qt::Key_Left, Qt::Key_Space});
    EXPECT_EQ(log, "1201");
    EXPECT_GT(middleOf(0).x(), middleOf(2).x());

    // A press that is taken away selects nothing, however that happens.
    for (const auto& take : std::initializer_list<std::function<void()>>{
             [&] { control.setEnabled(false); }, [&] { control.hide(); },
             [&] { control.setLabels({QStringLiteral("Only")}); }}) {
        QTest::mousePress(&control, Qt::LeftButton, {}, middleOf(0));
        take();
        EXPECT_EQ(control.styledCell().row().pressed(), std::nullopt);
        control.setEnabled(true);
        control.show();
        QTest::mouseRelease(&control, Qt::LeftButton, {}, middleOf(0));
    }
    EXPECT_EQ(log, "1201");
    EXPECT_EQ(control.selectedSegment(), std::nullopt) << "its segment is gone";
}

TEST_F(SegmentedControls, MayGoWithTheirAction) {
    auto* const brief = new StyledSegmentedControl({QStringLiteral("Once")}, &window);
    brief->setAction([brief](ActionTarget&, platform::Control&) { delete brief; }, *brief);
    brief->resize(brief->sizeHint());
    brief->show();
    const QPointer<QWidget> guard(brief);
    QTest::mouseClick(brief, Qt::LeftButton, {}, brief->rect().center());
    EXPECT_TRUE(guard.isNull());
}

TEST(ClickableImages, TellOfClicksDimWhilePressedAndLeadToTheirControl) {
    QWidget window;
    ClickableImageView view(&asset("dwk-checkbox"), &window);
    QLineEdit field(&window);
    view.resize(view.sizeHint());
    field.move(60, 0);
    showActive(window);
    int clicks = 0;
    const auto counting = view.clicked().subscribe([&](const Click&) { ++clicks; });

    const QPoint inside = view.rect().center();
    QTest::mousePress(&view, Qt::LeftButton, {}, inside);
    EXPECT_EQ(view.alphaValue(), 0.5);
    QTest::mouseMove(&view, QPoint(200, 200));
    EXPECT_EQ(view.alphaValue(), 0.5) << "until it is released";
    QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(200, 200));
    EXPECT_EQ(view.alphaValue(), 1);
    EXPECT_EQ(clicks, 0);
    QTest::mouseClick(&view, Qt::LeftButton, {}, inside);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(clicks, 2);
    QTest::mousePress(&view, Qt::LeftButton, {}, inside);
    view.setEnabled(false);
    EXPECT_EQ(view.alphaValue(), 1) << "a press that was taken away";
    QTest::mousePress(&view, Qt::LeftButton, {}, inside);
    EXPECT_EQ(view.alphaValue(), 1);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, inside);
    EXPECT_EQ(clicks, 2);
    view.setEnabled(true);

    std::vector<core::Subscription> kept;
    const ClickableControlPair pairs[] = {{view, field}};
    makeFirstResponderOnClick(pairs, kept);
    QTest::mouseClick(&view, Qt::LeftButton, {}, inside);
    EXPECT_TRUE(field.hasFocus());
    field.clearFocus();
    kept.clear();
    QTest::mouseClick(&view, Qt::LeftButton, {}, inside);
    EXPECT_FALSE(field.hasFocus());
}

TEST(SplitViews, MoveByMouseAndKeysWithoutADivider) {
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        NoDividerSplitView split;
        split.setLayoutDirection(direction);
        auto* const first = new StyledFlippedView;
        auto* const second = new StyledFlippedView;
        split.addWidget(first);
        split.addWidget(second);
        first->setMinimumWidth(20);
        second->setMinimumWidth(20);
        split.resize(400, 100);
        split.setSizes({200, 200});
        showActive(split);
        EXPECT_EQ(first->width() + second->width(), 400) << "no gap";
        QWidget* const handle = split.handle(1);
        QImage picture = split.grab().toImage();
        const QColor ground = toQColor(StyledFlippedView::style().backgroundColor());
        EXPECT_EQ(platform::testing::pixelsOf(picture, ground), picture.width() * picture.height())
            << "nothing is drawn";

        const QPoint middle = handle->rect().center();
        QTest::mousePress(handle, Qt::LeftButton, {}, middle);
        QTest::mouseMove(handle, middle + QPoint(30, 0));
        QTest::mouseRelease(handle, Qt::LeftButton, {}, middle);
        const bool isLtr = direction == Qt::LeftToRight;
        EXPECT_NEAR(first->width(), isLtr ? 230 : 170, 3);
        const int before = first->width();
        handle->setFocus(Qt::TabFocusReason);
        QTest::keyClick(handle, Qt::Key_Left);
        EXPECT_EQ(first->width(), before + (isLtr ? -8 : 8));
        QTest::keyClick(handle, Qt::Key_Right);
        EXPECT_EQ(first->width(), before) << "there and back";
        QTest::keyClick(handle, Qt::Key_Home);
        EXPECT_EQ(first->width(), isLtr ? 20 : 380);
    }
}

} // namespace
} // namespace driftwood
