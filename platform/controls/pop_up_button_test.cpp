#include "platform/controls/pop_up_button.hpp"

#include "platform/testing/window_testing.hpp"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace platform {
namespace {

using testing::runFor;
using testing::runUntil;
using testing::showActive;

class PopUpButtonTest : public ::testing::Test {
  protected:
    PopUpButtonTest() {
        for (const char* const title : {"Sine", "Triangle", "Square", "Noise"}) {
            button.addItem(QString::fromLatin1(title))
                .setTag(10 * static_cast<int>(button.menu().actions().size()));
        }
        button.setAction([this](ActionTarget&, Control&) { sent << button.title(); }, button);
        button.setGeometry(100, 100, 140, 24);
        window.setGeometry(200, 200, 400, 300);
        showActive(window);
        button.setFocus(Qt::TabFocusReason);
    }

    void expectOpen() {
        ASSERT_TRUE(
            runUntil([&] { return button.isOpen() && button.menu().windowHandle()->isExposed(); }));
        runFor(350);
    }
    [[nodiscard]] QPoint middleOf(int index) const {
        return button.menu().actionGeometry(button.menu().itemAt(index)).center();
    }
    [[nodiscard]] QList<bool> marks() const {
        QList<bool> marks;
        for (const MenuItem* const item : button.menu().items()) {
            marks << (item->state() == StateValue::on);
        }
        return marks;
    }

    QWidget window;
    PopUpButton button{std::make_unique<ButtonCell>(), PopUpButton::Kind::popUp, &window};
    QStringList sent;
};

TEST_F(PopUpButtonTest, ShowsAndMarksTheSelectedItem) {
    EXPECT_EQ(button.title(), QStringLiteral("Sine")) << "the first one";
    button.selectItemAt(2);
    EXPECT_EQ(button.title(), QStringLiteral("Square"));
    EXPECT_EQ(marks(), QList<bool>({false, false, true, false}));
    button.selectItemAt(9);
    button.selectItemWithTag(99);
    EXPECT_EQ(button.indexOfSelectedItem(), 2) << "there is no such item";
    button.selectItemWithTag(20);
    EXPECT_EQ(button.title(), QStringLiteral("Triangle"));
    (void)button.menu().removeItem(*button.selectedItem());
    button.itemsDidChange();
    EXPECT_EQ(button.title(), QStringLiteral("Sine"));
    button.selectItem(nullptr);
    EXPECT_EQ(button.title(), QString());
    EXPECT_EQ(marks(), QList<bool>({false, false, false}));
    EXPECT_TRUE(sent.empty()) << "a program sends nothing";
}

TEST_F(PopUpButtonTest, APressDraggedToAnItemChoosesItAndAClickLeavesTheMenuOpen) {
    QWindow* const from = window.windowHandle();
    const QPoint middle = button.geometry().center();
    QTest::mousePress(from, Qt::LeftButton, {}, middle);
    expectOpen();
    EXPECT_TRUE(button.isHighlighted());
    QWindow* const to = button.menu().windowHandle();
    // As the window system tells: moves with the button held, then the release.
    for (int index : {1, 2}) {
        for (int i = 0; i < 8; ++i) {
            testing::sendMove(button.menu(), middleOf(index) + QPoint(i, 0));
        }
    }
    EXPECT_EQ(button.menu().activeAction(), button.menu().itemAt(2));
    QTest::mouseRelease(to, Qt::LeftButton, {}, middleOf(2));
    EXPECT_TRUE(runUntil([&] { return !button.isOpen() && sent.size() == 1; }));
    EXPECT_EQ(sent, QStringList({QStringLiteral("Square")}));
    EXPECT_FALSE(button.isHighlighted());

    QCursor::setPos(window.mapToGlobal(middle));
    QTest::mousePress(from, Qt::LeftButton, {}, middle);
    ASSERT_TRUE(runUntil([&] { return button.isOpen(); }));
    // At once, where it was pressed.
    QTest::mouseRelease(to, Qt::LeftButton, {},
                        button.menu().mapFromGlobal(window.mapToGlobal(middle)));
    EXPECT_TRUE(button.isOpen());
    QTest::keyClick(&button.menu(), Qt::Key_Escape);
    EXPECT_FALSE(button.isOpen());
    EXPECT_EQ(sent.size(), 1);
}

TEST_F(PopUpButtonTest, OpensByKeysWithTheSelectedItemChosen) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Down, Qt::Key_Up}) {
        QTest::keyPress(&button, key);
        ASSERT_TRUE(runUntil([&] { return button.isOpen(); })) << key;
        EXPECT_EQ(button.menu().activeAction(), button.selectedItem());
        EXPECT_TRUE(button.isHighlighted());
        QTest::keyClick(&button.menu(), Qt::Key_Escape);
        QTest::keyRelease(&button, key);
        EXPECT_FALSE(button.isOpen());
    }
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button.menu(), Qt::Key_Down);
    QTest::keyClick(&button.menu(), Qt::Key_Return);
    EXPECT_TRUE(runUntil([&] { return sent == QStringList({QStringLiteral("Triangle")}); }));
    QTest::keyClick(&button, Qt::Key_Down, Qt::ControlModifier);
    button.setEnabled(false);
    button.openMenu();
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_FALSE(button.isOpen());
}

TEST_F(PopUpButtonTest, AnItemWithAnActionOfItsOwnSendsThatInPlaceOfTheButtons) {
    Control target;
    int own = 0;
    button.menu().itemAt(3)->setAction(
        [&](ActionTarget&, Control&) {
            ++own;
            EXPECT_EQ(button.title(), QStringLiteral("Noise")) << "selected before";
        },
        target);
    button.menu().itemAt(3)->trigger();
    EXPECT_EQ(own, 1);
    EXPECT_TRUE(sent.empty());
    button.menu().itemAt(0)->trigger();
    EXPECT_EQ(sent, QStringList({QStringLiteral("Sine")}));
}

TEST_F(PopUpButtonTest, MayLoseItsItemsAndItselfWhileItIsOpen) {
    auto* const other =
        new PopUpButton(std::make_unique<ButtonCell>(), PopUpButton::Kind::popUp, &window);
    other->addItem(QStringLiteral("Destroys the button"));
    const QPointer<PopUpButton> seen(other);
    other->setAction([&](ActionTarget&, Control&) { delete other; }, *other);
    other->setGeometry(100, 200, 140, 24);
    other->show();
    other->openMenu();
    ASSERT_TRUE(runUntil([&] { return other->isOpen(); }));
    runFor(350);
    const QPoint first = other->menu().actionGeometry(other->menu().itemAt(0)).center();
    QTest::mouseClick(&other->menu(), Qt::LeftButton, {}, first);
    EXPECT_EQ(seen, nullptr);

    button.openMenu();
    expectOpen();
    std::vector<std::unique_ptr<MenuItem>> items;
    items.push_back(std::make_unique<MenuItem>(QStringLiteral("New")));
    button.setItems(std::move(items));
    EXPECT_EQ(button.title(), QStringLiteral("New"));
    EXPECT_TRUE(button.isOpen());
    QTest::mouseClick(&button.menu(), Qt::LeftButton, {}, middleOf(0));
    EXPECT_TRUE(runUntil([&] { return sent == QStringList({QStringLiteral("New")}); }));
}

TEST_F(PopUpButtonTest, OneThatPullsDownKeepsItsTitle) {
    PopUpButton pullDown(std::make_unique<ButtonCell>(QStringLiteral("Add")),
                         PopUpButton::Kind::pullDown, &window);
    pullDown.addItem(QStringLiteral("Oscillator"));
    pullDown.setGeometry(20, 20, 80, 24);
    pullDown.show();
    EXPECT_EQ(pullDown.selectedItem(), nullptr);
    pullDown.openMenu();
    ASSERT_TRUE(runUntil([&] { return pullDown.isOpen(); }));
    const Menu& menu = pullDown.menu();
    EXPECT_EQ(menu.geometry().top() + menu.contentsMargins().top(),
              pullDown.mapToGlobal(QPoint(0, 28)).y());
    menu.itemAt(0)->trigger();
    EXPECT_EQ(pullDown.title(), QStringLiteral("Add"));
    EXPECT_EQ(menu.itemAt(0)->state(), StateValue::off);
}

} // namespace
} // namespace platform
