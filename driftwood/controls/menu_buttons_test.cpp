#include "driftwood/controls/corner_button.hpp"
#include "driftwood/controls/pop_up_cycling_button.hpp"
#include "platform/controls/menu.hpp"
#include "platform/controls/pop_up_button.hpp"
#include "platform/testing/window_testing.hpp"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QTest>

#include <gtest/gtest.h>

namespace driftwood {
namespace {

using platform::Menu;
using platform::testing::runFor;
using platform::testing::runUntil;
using platform::testing::showActive;

/// Pop-ups take the keyboard from a real window system, and that must not end what they stand for.
class CornerButtons : public ::testing::Test {
  protected:
    CornerButtons() {
        window.resize(200, 100);
        button.setGeometry(20, 20, 40, 24);
        button.setAction([this](platform::ActionTarget&, platform::Control&) { ++clicks; }, button);
        showActive(window);
        button.setFocus(Qt::TabFocusReason);
    }

    Menu& giveMenu() {
        button.setAlternateMenu(std::make_unique<Menu>());
        button.alternateMenu()->addItem(QStringLiteral("Duplicate"));
        return *button.alternateMenu();
    }
    void expectOpen(Menu& menu) {
        ASSERT_TRUE(runUntil(
            [&] { return menu.windowHandle() != nullptr && menu.windowHandle()->isExposed(); }));
        runFor(50);
        EXPECT_TRUE(button.isHighlighted()) << "as long as it is open";
        EXPECT_EQ(QApplication::activePopupWidget(), &menu);
    }
    void expectClosed() {
        ASSERT_TRUE(runUntil([] { return QApplication::activePopupWidget() == nullptr; }));
        runFor(20);
        EXPECT_FALSE(button.isHighlighted());
    }

    QWidget window;
    CornerButton button{QStringLiteral("A"), &window};
    int clicks = 0;
};

TEST_F(CornerButtons, OpenTheirMenuInPlaceOfClickingAndStayLitUntilItCloses) {
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    Menu& menu = giveMenu();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->role(), QAccessible::ButtonMenu);
    QTest::mousePress(&button, Qt::LeftButton);
    expectOpen(menu);
    const QRect panel = menu.geometry().marginsRemoved(menu.contentsMargins());
    EXPECT_EQ(panel.topLeft(), button.mapToGlobal(QPoint(0, 28)));
    EXPECT_EQ(menu.activeAction(), nullptr);
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_TRUE(menu.isVisible());
    QTest::keyClick(&menu, Qt::Key_Escape);
    expectClosed();
    QTest::mousePress(&button, Qt::RightButton);
    expectOpen(menu);
    menu.hide();
    expectClosed();
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(&button, &menuKey);
    expectOpen(menu);
    EXPECT_EQ(menu.activeAction(), menu.itemAt(0)) << "a key chooses the first item";
    QTest::keyClick(&menu, Qt::Key_Return);
    expectClosed();
    EXPECT_EQ(clicks, 1);
    // The second click of a series is a click.
    platform::testing::sendMouse(button, QEvent::MouseButtonDblClick, {5, 5}, Qt::LeftButton,
                                 Qt::LeftButton);
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(clicks, 2);
}

TEST_F(CornerButtons, LoseTheirMenuWhileItIsOpen) {
    Menu& menu = giveMenu();
    QTest::mousePress(&button, Qt::LeftButton);
    expectOpen(menu);
    button.setAlternateMenu(nullptr);
    expectClosed();
    QTest::mouseRelease(&button, Qt::LeftButton);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST(CyclingButtons, StepThroughTheirPopUpButton) {
    PopUpCyclingButton button({});
    button.resize(20, 20);
    {
        platform::PopUpButton popUp;
        for (const char* const title : {"Sine", "Triangle", "Square", "Noise"}) {
            popUp.addItem(QString::fromLatin1(title));
        }
        popUp.menu().itemAt(1)->setEnabled(false);
        std::string order;
        const platform::Control* sender = nullptr;
        popUp.setAction(
            [&](platform::ActionTarget&, platform::Control& from) {
                order += std::to_string(popUp.indexOfSelectedItem());
                sender = &from;
            },
            popUp);
        button.setPopUpButton(popUp);
        QTest::mouseClick(&button, Qt::LeftButton); // over the disabled one
        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::mouseClick(&button, Qt::LeftButton); // nothing at the end
        QTest::mouseClick(&button, Qt::LeftButton, Qt::ShiftModifier);
        QTest::keyClick(&button, Qt::Key_Space, Qt::ShiftModifier);
        QTest::keyClick(&button, Qt::Key_Return);
        button.performClick(); // a program holds no keys
        EXPECT_EQ(order, "232023");
        EXPECT_EQ(sender, &popUp);
    }
    QTest::mouseClick(&button, Qt::LeftButton); // the target is gone
    platform::Control other;
    button.setPopUpButton(other);
    EXPECT_DEATH(QTest::mouseClick(&button, Qt::LeftButton), "Fatal error: the target of a ");
}

} // namespace
} // namespace driftwood
