#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/controls/styled_combo_box.hpp"
#include "driftwood/controls/styled_pop_up_button.hpp"
#include "platform/testing/window_testing.hpp"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace driftwood {
namespace {

using platform::testing::runFor;
using platform::testing::runUntil;
using platform::testing::showActive;

TEST(PopUpCells, KeepALineForTheTitle) {
    StyledPopUpButtonCell cell(QStringLiteral("Sine"));
    struct Case {
        core::Rect bounds;
        bool isRtl;
        core::Rect expected;
    };
    const Case cases[] = {
        {{{0, 0}, {100, 24}}, false, {{10, 5}, {76, 14}}},
        {{{0, 0}, {100, 24}}, true, {{14, 5}, {76, 14}}},
        {{{6, 3}, {100, 25}}, false, {{10, 8}, {76, 14}}}, // from the cell's own edge
        {{{0, 0}, {20, 24}}, false, {{10, 5}, {0, 14}}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(cell.titleRect(c.bounds, c.isRtl), c.expected);
    }
    cell.setTitle({});
    EXPECT_EQ(cell.titleRect({{0, 0}, {100, 24}}, false), core::Rect());
    cell.setTitle(QStringLiteral("Sine"));
    cell.setImagePosition(platform::ImagePosition::imageOnly);
    EXPECT_EQ(cell.titleRect({{0, 0}, {100, 24}}, false), core::Rect());
}

TEST(PopUpButtons, AreAsTallAsTheirBezelAndAsWideAsTheirWidestItem) {
    StyledPopUpButton button;
    button.addItem(QString());
    EXPECT_EQ(button.sizeHint(), QSize(32, 24)) << "no narrower than the bezel";
    button.addItem(QStringLiteral("A rather long one"));
    const double wide = button.styledCell().sizeFor(QStringLiteral("A rather long one")).width;
    EXPECT_EQ(button.intrinsicContentSize(), (core::Size{wide - 4, 18}));
    button.selectItemAt(1);
    button.setLabel(QStringLiteral("Wave"));
    EXPECT_GT(button.intrinsicContentSize().width, wide);
    EXPECT_EQ(button.spokenName(), QStringLiteral("Wave A rather long one"));
    button.setFixedWidth(90);
    EXPECT_EQ(button.intrinsicContentSize(), (core::Size{86, 18}));
    ToolPopUpButton tool;
    EXPECT_EQ(&tool.styledCell().controlStyle(), &ToolPopUpButtonCell::style());
    EXPECT_NE(&tool.styledCell().controlStyle(), &StyledPopUpButtonCell::style());
}

TEST(PopDownButtons, KeepTheirTitleAndTellOfAReleaseAndOfAChoice) {
    QWidget window;
    window.resize(200, 100);
    StyledPopDownButton button(QStringLiteral("Actions"), &window);
    button.setGeometry(20, 20, 120, 24);
    int sent = 0;
    button.setAction([&](platform::ActionTarget&, platform::Control&) { ++sent; }, button);
    showActive(window);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(sent, 1) << "without a menu it is a push button";
    button.addItem(QStringLiteral("Duplicate"));
    EXPECT_EQ(button.title(), QStringLiteral("Actions"));
    QTest::mousePress(&button, Qt::LeftButton);
    ASSERT_TRUE(
        runUntil([&] { return button.isOpen() && button.menu().windowHandle()->isExposed(); }));
    EXPECT_TRUE(button.isHighlighted());
    const QPoint middle = button.mapToGlobal(button.rect().center());
    QTest::mouseRelease(button.menu().windowHandle(), Qt::LeftButton, {},
                        button.menu().mapFromGlobal(middle));
    EXPECT_EQ(sent, 2);
    EXPECT_TRUE(button.isOpen());
    QTest::keyClick(&button.menu(), Qt::Key_Down);
    QTest::keyClick(&button.menu(), Qt::Key_Return);
    EXPECT_TRUE(runUntil([&] { return sent == 3; }));
    EXPECT_EQ(button.title(), QStringLiteral("Actions"));
    button.setTitle(QStringLiteral("More"));
    EXPECT_EQ(button.title(), QStringLiteral("More"));
}

class ComboBoxes : public ::testing::Test {
  protected:
    ComboBoxes() {
        for (const char* const name : {"Bright", "Broad", "Dark"}) {
            combo.addItem(QString::fromLatin1(name));
        }
        combo.setAction(
            [this](platform::ActionTarget&, platform::Control&) { told << combo.currentText(); },
            combo);
        combo.setGeometry(20, 20, 140, 24);
        window.setGeometry(100, 100, 300, 200);
        showActive(window);
        combo.setFocus(Qt::TabFocusReason);
    }
    const platform::ImageAsset* arrow() { return combo.styledCell().arrowImage(); }
    static const platform::ImageAsset* image(const char* name) {
        return resourceBundle().assets().image(QString::fromLatin1(name));
    }
    void open() {
        combo.showPopup();
        ASSERT_TRUE(runUntil([&] { return combo.view()->isVisible(); }));
        EXPECT_TRUE(combo.isPopupOpen());
        EXPECT_EQ(arrow(), image("dwk-combobox"));
    }

    QWidget window;
    StyledComboBox combo{&window};
    QStringList told;
};

TEST_F(ComboBoxes, FollowTheirListHoweverItCloses) {
    EXPECT_EQ(arrow(), image("dwk-combobox-up"));
    const std::function<void()> ways[] = {
        [&] { combo.hidePopup(); },
        [&] { combo.view()->parentWidget()->hide(); }, // as when another window comes
        [&] { QTest::keyClick(combo.view(), Qt::Key_Escape); },
        [&] {
            combo.clear(); // while it is open
            combo.addItem(QStringLiteral("Other"));
            combo.hidePopup();
        },
    };
    for (const auto& close : ways) {
        open();
        close();
        EXPECT_TRUE(runUntil([&] { return !combo.isPopupOpen(); }));
        EXPECT_EQ(arrow(), image("dwk-combobox-up"));
    }
    EXPECT_TRUE(told.empty());
}

TEST_F(ComboBoxes, TellOfAChoiceAndOfAFinishedTextOnce) {
    open();
    QTest::keyClick(combo.view(), Qt::Key_Down);
    QTest::keyClick(combo.view(), Qt::Key_Return);
    ASSERT_TRUE(runUntil([&] { return told.size() == 1; }));
    EXPECT_EQ(told.takeFirst(), QStringLiteral("Broad"));
    combo.lineEdit()->selectAll();
    QTest::keyClicks(combo.lineEdit(), QStringLiteral("da")); // completed
    EXPECT_EQ(combo.lineEdit()->text().toLower(), QStringLiteral("dark"));
    QTest::keyClick(combo.lineEdit(), Qt::Key_Return);
    combo.lineEdit()->selectAll();
    QTest::keyClicks(combo.lineEdit(), QStringLiteral("Mine"));
    EXPECT_EQ(told.size(), 1);
    window.setFocusPolicy(Qt::StrongFocus);
    window.setFocus();
    EXPECT_EQ(told, QStringList({QStringLiteral("Dark"), QStringLiteral("Mine")}));
    EXPECT_EQ(combo.count(), 3) << "nothing is added";
    combo.setCurrentText(QStringLiteral("Dark"));
    EXPECT_EQ(told.size(), 2) << "by a program";
}

TEST_F(ComboBoxes, PutTheEditorWhereTheCellSays) {
    EXPECT_EQ(combo.sizeHint().height(), 24);
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        combo.setLayoutDirection(direction);
        combo.resize(direction == Qt::LeftToRight ? 150 : 160, 30);
        const core::Rect expected = combo.styledCell().titleRect(
            {{0, 0}, {double(combo.width()), 30}}, direction == Qt::RightToLeft);
        EXPECT_EQ(combo.lineEdit()->geometry(), platform::toQRectF(expected).toRect());
        EXPECT_EQ(combo.lineEdit()->x(), direction == Qt::LeftToRight ? 8 : 16);
    }
    // Nothing of the toolkit's own look is left in the field.
    combo.setEnabled(false);
    combo.setCurrentText({});
    const QImage picture = combo.grab().toImage();
    EXPECT_EQ(platform::testing::pixelsOf(picture, combo.palette().color(QPalette::Button)), 0);
}

} // namespace
} // namespace driftwood
