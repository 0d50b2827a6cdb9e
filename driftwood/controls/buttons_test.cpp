// The push buttons and check boxes as widgets. Presses are tested for all buttons of the house at
// once, names, roles and actions over the accessibility bus.

#include "driftwood/controls/back_button.hpp"
#include "driftwood/controls/kestrel_push_button.hpp"
#include "driftwood/controls/styled_check_box.hpp"
#include "driftwood/controls/tool_button.hpp"
#include "driftwood/testing/button_testing.hpp"
#include "platform/testing/window_testing.hpp"

#include <QAccessible>
#include <QTest>

#include <gtest/gtest.h>

namespace driftwood {
namespace {

using platform::StateValue;
using platform::testing::runFor;
using platform::testing::showActive;
using testing::Counter;

TEST(Buttons, AreAsTallAsTheirBezelLessTheAlignmentInsets) {
    StyledButton button(QStringLiteral("A"));
    EXPECT_EQ(button.intrinsicContentSize().height, 24);
    auto& style = StyledButtonCell::style();
    const core::EdgeInsets before = style.alignmentRectInsets();
    style.setAlignmentRectInsets({3, 2, 3, 2});
    EXPECT_EQ(button.intrinsicContentSize(), (core::Size{24 - 4, 18})); // the bezel's width
    EXPECT_EQ(button.sizeHint(), QSize(24, 24)); // the widget has the insets around
    ToolButton tool(QStringLiteral("A"));        // takes the insets of the push buttons, too
    EXPECT_EQ(tool.intrinsicContentSize().height, 32 - 6);
    button.setFixedWidth(100);
    EXPECT_EQ(button.intrinsicContentSize(), (core::Size{96, 18}));
    style.setAlignmentRectInsets(before);
    BackButton back(QStringLiteral("A"));
    EXPECT_EQ(back.intrinsicContentSize().height, 32 - 10);
    StyledButton wide(QStringLiteral("A title wider than the bezel's image"));
    EXPECT_GT(wide.intrinsicContentSize().width, 150);
    wide.setBordered(false);
    EXPECT_LT(wide.intrinsicContentSize().height, 24);
    KestrelPushButton kestrel(QStringLiteral("A"));
    EXPECT_EQ(kestrel.intrinsicContentSize().height, 24); // the bezel
    EXPECT_EQ(kestrel.sizeHint().height(), 32);           // with the room around it
    kestrel.setFixedWidth(10);
    EXPECT_EQ(kestrel.intrinsicContentSize().width, 10);
}

TEST(Buttons, AreClickedByProgramsAndLeaveTheKeyboardWhereItIs) {
    StyledButton button(QStringLiteral("A"));
    showActive(button);
    button.clearFocus();
    Counter clicks(button);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_FALSE(button.hasFocus());
    EXPECT_EQ(button.state(), StateValue::off); // it does not show its state
    button.performClick();
    EXPECT_TRUE(button.isHighlighted()); // for a moment
    EXPECT_TRUE(platform::testing::runUntil([&] { return !button.isHighlighted(); }));
    button.setEnabled(false);
    EXPECT_EQ(button.styledCell().controlState(),
              StyledControlState::default_ | StyledControlState::disabled);
    button.performClick();
    EXPECT_EQ(clicks.count, 2);
}

TEST(Buttons, ShowTheirFocusRingInAKeyWindowOnly) {
    QWidget window;
    StyledButton button(QString(), &window);
    button.setGeometry(10, 10, 60, 24);
    button.setBordered(false);
    window.resize(80, 44);
    showActive(window);
    button.setFocus(Qt::TabFocusReason);
    const QColor ring = testing::kitColor("Highlight/System");
    const QImage focused = button.grab().toImage();
    const qreal scale = focused.devicePixelRatio();
    const auto at = [&](double x, double y) {
        return focused.pixelColor(int(x * scale), int(y * scale));
    };
    EXPECT_EQ(at(30, 0.5).rgb(), ring.rgb()); // two points wide, around a line one point inside
    EXPECT_EQ(at(30, 1.5).rgb(), ring.rgb());
    EXPECT_NE(at(30, 2.5).rgb(), ring.rgb());
    EXPECT_NE(at(30, 12).rgb(), window.palette().window().color().rgb()); // lightly filled
    EXPECT_NE(at(0, 0).rgb(), ring.rgb());                                // round corners
    QWidget other;
    showActive(other);
    EXPECT_EQ(platform::testing::pixelsOf(button.grab().toImage(), ring), 0);
}

TEST(Buttons, AnActionMayDestroyItsButton) {
    auto button = std::make_unique<StyledCheckBox>(QStringLiteral("A"));
    button->resize(60, 24);
    Counter target(*button);
    button->setAction([&](platform::ActionTarget&, platform::Control&) { button.reset(); }, target);
    QTest::mousePress(button.get(), Qt::LeftButton);
    platform::testing::sendMouse(*button, QEvent::MouseButtonRelease, {30, 12}, Qt::LeftButton, {});
    EXPECT_EQ(button, nullptr);
}

TEST(CheckBoxes, GoFromMixedAndOffToOn) {
    StyledCheckBox box(QStringLiteral("A"));
    box.resize(60, 24);
    box.cell().setAllowsMixedState(true);
    box.setState(StateValue::mixed);
    for (const StateValue expected : {StateValue::on, StateValue::off, StateValue::on}) {
        QTest::mouseClick(&box, Qt::LeftButton);
        EXPECT_EQ(box.state(), expected);
    }
    box.setEnabled(false);
    auto* const spoken = QAccessible::queryAccessibleInterface(&box);
    spoken->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(box.state(), StateValue::on);

    FavouriteCheckBox star({});
    star.resize(16, 16);
    QTest::mousePress(&star, Qt::LeftButton);
    EXPECT_EQ(star.alphaValue(), 0.5);
    QTest::mouseMove(&star, {100, 100}); // still pressed
    EXPECT_EQ(star.alphaValue(), 0.5);
    QTest::mouseRelease(&star, Qt::LeftButton, {}, {100, 100});
    EXPECT_EQ(star.alphaValue(), 1);
}

TEST(Buttons, AreSetUpOnceAndComplete) {
    class Wide : public ToolButton {
      public:
        using ToolButton::ToolButton;
        int setUps = 0;

      protected:
        void setupButton() override {
            ++setUps;
            setFixedWidth(200);
        }
    };
    Wide button(QStringLiteral("A"));
    EXPECT_EQ(button.setUps, 0);
    EXPECT_EQ(button.sizeHint().width(), 200);
    showActive(button);
    EXPECT_EQ(button.setUps, 1);
}

// How style followers go on is tested with them; here, that buttons are some.
TEST(Buttons, AreRepaintedOnceWhenTheStyleOfTheirClassChanges) {
    class CountingButton final : public StyledButton {
      public:
        using StyledButton::StyledButton;
        int paints = 0;

      protected:
        void paintEvent(QPaintEvent* event) override {
            ++paints;
            StyledButton::paintEvent(event);
        }
    } button(QStringLiteral("A"));
    showActive(button);
    auto& style = StyledButtonCell::style();
    const auto before = style.textColor();
    for (const auto& [color, paints] :
         {std::pair(makeColor(Qt::red), 1), {makeColor(Qt::red), 0}, {before, 1}}) {
        runFor(20);
        button.paints = 0;
        style.setTextColor(color);
        runFor(20);
        EXPECT_EQ(button.paints, paints);
    }
}

} // namespace
} // namespace driftwood
