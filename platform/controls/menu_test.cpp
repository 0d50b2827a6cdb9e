#include "platform/controls/kit_style.hpp"
#include "platform/controls/menu.hpp"
#include "platform/testing/window_testing.hpp"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace platform {
namespace {

using testing::runFor;
using testing::runUntil;
using testing::showActive;

/// A window with a button from which menus open.
class MenuTest : public ::testing::Test {
  protected:
    MenuTest() {
        window.setGeometry(200, 200, 400, 300);
        button.setGeometry(150, 40, 100, 24);
        showActive(window);
    }

    void expectOpen() {
        ASSERT_TRUE(runUntil([&] {
            return menu.isVisible() && menu.windowHandle()->isExposed() &&
                   QApplication::activePopupWidget() == &menu;
        }));
        runFor(350); // a release of the mouse counts from then on
    }
    /// What the user sees as the menu, on the desktop.
    [[nodiscard]] QRect panel() const {
        return menu.geometry().marginsRemoved(menu.contentsMargins());
    }
    [[nodiscard]] QPoint middleOf(const MenuItem& item) const {
        return menu.actionGeometry(const_cast<MenuItem*>(&item)).center();
    }
    void choose(const MenuItem& item) {
        QTest::mouseMove(&menu, middleOf(item));
        QTest::mousePress(&menu, Qt::LeftButton, {}, middleOf(item));
        QTest::mouseRelease(&menu, Qt::LeftButton, {}, middleOf(item));
    }
    [[nodiscard]] QStringList shownTitles() const {
        QStringList titles;
        for (const MenuItem* const item : menu.items()) {
            if (item->isVisible()) {
                titles << item->title();
            }
        }
        return titles;
    }

    QWidget window;
    QPushButton button{&window};
    Menu menu;
};

TEST_F(MenuTest, ChoosingTellsTheMenuAndThenSendsTheItemsOwnAction) {
    Control target;
    QStringList order;
    MenuItem& first = menu.addItem(QStringLiteral("Cut & Paste"));
    first.setAction(
        [&](ActionTarget&, Control& sender) {
            auto& item = dynamic_cast<MenuItem&>(sender);
            order << QStringLiteral("action %1").arg(*item.represented<int>());
            EXPECT_EQ(item.represented<double>(), nullptr) << "of another type";
            menu.setItems({}); // destroys the item that is being chosen
        },
        target);
    first.setRepresentedObject(42);
    first.setState(StateValue::mixed);
    QObject::connect(&menu, &Menu::closed, [&] { order << QStringLiteral("closed"); });
    QObject::connect(&menu, &Menu::chosen, [&](const MenuItem* item) {
        EXPECT_EQ(item->state(), StateValue::mixed) << "choosing leaves it";
        EXPECT_FALSE(item->isChecked());
        order << QStringLiteral("chosen ") + item->title();
    });
    menu.popUpBelow(button);
    expectOpen();
    EXPECT_TRUE(button.isDown()) << "lit while it is open";
    choose(first);
    EXPECT_TRUE(runUntil([&] { return order.size() == 3; }));
    EXPECT_EQ(order, QStringList({QStringLiteral("closed"), QStringLiteral("chosen Cut & Paste"),
                                  QStringLiteral("action 42")}));
    EXPECT_FALSE(button.isDown());
    EXPECT_TRUE(menu.items().empty());
}

TEST_F(MenuTest, OpensFlushWithItsButtonAndAboveItWhereThereIsNoRoom) {
    for (int i = 0; i < 8; ++i) {
        menu.addItem(QStringLiteral("A rather long title %1").arg(i));
    }
    const auto placed = [&](Qt::Alignment edge) {
        menu.popUpBelow(button, edge);
        expectOpen();
        const QRect place = panel();
        menu.hide();
        return place;
    };
    const auto below = [&] { return QRect(button.mapToGlobal(QPoint()), button.size()); };
    QRect place = placed(Qt::AlignLeading);
    EXPECT_EQ(place.left(), below().left());
    EXPECT_EQ(place.top(), below().bottom() + 1 + 4);
    EXPECT_EQ(placed(Qt::AlignTrailing).right(), below().right());
    button.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(placed(Qt::AlignTrailing).left(), below().left());
    EXPECT_EQ(placed(Qt::AlignLeading).right(), below().right());
    const QRect screen = window.screen()->availableGeometry();
    window.move(200, screen.bottom() - 150);
    runFor(50);
    place = placed(Qt::AlignLeading);
    EXPECT_EQ(place.bottom(), below().top() - 1 - 4);
    window.move(screen.right() - 200, 200);
    runFor(50);
    button.setLayoutDirection(Qt::LeftToRight);
    EXPECT_LE(placed(Qt::AlignLeading).right(), screen.right());
}

TEST_F(MenuTest, LiesWithAnItemOverItsButton) {
    for (int i = 0; i < 6; ++i) {
        menu.addItem(QStringLiteral("Item %1").arg(i))
            .setState(i == 3 ? StateValue::on : StateValue::off);
    }
    menu.popUpOver(button, *menu.itemAt(3), 10);
    expectOpen();
    const auto middle = [&](const MenuItem& item) { return menu.mapToGlobal(middleOf(item)).y(); };
    const int wanted = button.mapToGlobal(button.rect().center()).y();
    EXPECT_NEAR(middle(*menu.itemAt(3)), wanted, 1);
    EXPECT_EQ(menu.activeAction(), menu.itemAt(3));
    EXPECT_GE(panel().right(), button.mapToGlobal(button.rect().topRight()).x());
    menu.hide();
    // In a menu longer than the screen, too.
    for (int i = 6; i < 300; ++i) {
        menu.addItem(QStringLiteral("Item %1").arg(i));
    }
    menu.popUpOver(button, *menu.itemAt(150), 10);
    expectOpen();
    EXPECT_NEAR(middle(*menu.itemAt(150)), wanted, 1);
    QTest::keyClick(&menu, Qt::Key_Down);
    EXPECT_EQ(menu.activeAction(), menu.itemAt(151));
    menu.hide();
}

TEST_F(MenuTest, AlternatesTakeThePlacesOfTheirItemsWhileAltIsHeld) {
    menu.addItem(QStringLiteral("Close"));
    auto all = std::make_unique<MenuItem>(QStringLiteral("Close Every Single Window"));
    all->setAlternate(true);
    MenuItem& alternate = menu.addItem(std::move(all));
    menu.addItem(QStringLiteral("Quit"));
    std::string chosen;
    QObject::connect(&menu, &Menu::chosen,
                     [&](const MenuItem* item) { chosen = item->title().toStdString(); });
    menu.popUpBelow(button);
    expectOpen();
    menu.setActiveAction(menu.itemAt(0));
    const QRect before = menu.geometry();
    const QStringList usual{QStringLiteral("Close"), QStringLiteral("Quit")};
    EXPECT_EQ(shownTitles(), usual);
    QTest::keyPress(&menu, Qt::Key_Alt);
    EXPECT_TRUE(menu.isVisible()) << "the toolkit closes a menu on Alt";
    EXPECT_EQ(shownTitles().front(), alternate.title());
    EXPECT_EQ(shownTitles().size(), 2);
    EXPECT_EQ(menu.activeAction(), &alternate);
    EXPECT_EQ(menu.geometry(), before) << "jumps";
    EXPECT_GT(menu.width(), QFontMetrics(menu.font()).horizontalAdvance(alternate.title()));
    QTest::keyRelease(&menu, Qt::Key_Alt);
    EXPECT_EQ(shownTitles(), usual);
    EXPECT_EQ(menu.activeAction(), menu.itemAt(0));
    // The release of the key may go elsewhere; the next event tells.
    QTest::keyPress(&menu, Qt::Key_Alt);
    testing::sendMove(menu, middleOf(alternate), Qt::NoButton);
    EXPECT_EQ(shownTitles(), usual);
    menu.setActiveAction(menu.itemAt(0));
    QTest::keyPress(&menu, Qt::Key_Alt);
    QTest::keyClick(&menu, Qt::Key_Return, Qt::AltModifier);
    EXPECT_TRUE(runUntil([&] { return !chosen.empty(); }));
    EXPECT_EQ(chosen, "Close Every Single Window");
    EXPECT_TRUE(runUntil([&] { return shownTitles() == usual; })) << "closed again";
    EXPECT_EQ(menu.removeItem(alternate)->counterpart(), nullptr);
    EXPECT_EQ(menu.itemAt(0)->counterpart(), nullptr);
}

TEST_F(MenuTest, TellsOfChoicesInSubmenusAndTakesThemAlong) {
    auto sub = std::make_unique<Menu>();
    const QPointer<Menu> submenu = sub.get();
    MenuItem& inner = sub->addItem(QStringLiteral("Inner"));
    inner.setTag(7);
    MenuItem& outer =
        menu.addItem(std::make_unique<MenuItem>(QStringLiteral("Outer"), std::move(sub)));
    EXPECT_EQ(menu.firstItem([](const MenuItem& item) { return item.tag() == 7; }), &inner);
    std::string chosen;
    QObject::connect(&menu, &Menu::chosen,
                     [&](const MenuItem* item) { chosen = item->title().toStdString(); });
    menu.popUpBelow(button, Qt::AlignLeading, 4, MenuOpenedBy::key);
    expectOpen();
    EXPECT_EQ(menu.activeAction(), &outer) << "a key chooses the first item";
    QTest::keyClick(&menu, Qt::Key_Right);
    ASSERT_TRUE(runUntil([&] { return submenu->isVisible(); }));
    EXPECT_EQ(submenu->style(), menu.style());
    // The panels lie on each other by two points.
    const QRect inside = submenu->geometry().marginsRemoved(submenu->contentsMargins());
    EXPECT_EQ(panel().right() - inside.left() + 1, 2);
    QTest::keyClick(submenu.data(), Qt::Key_Return);
    EXPECT_TRUE(runUntil([&] { return chosen == "Inner"; }));
    menu.setItems({});
    EXPECT_EQ(submenu, nullptr);
}

TEST_F(MenuTest, APressOnItsButtonClosesItAndOpensItNotAgain) {
    menu.addItem(QStringLiteral("Item"));
    int opened = 0;
    QObject::connect(&button, &QPushButton::pressed, [&] {
        ++opened;
        menu.popUpBelow(button);
    });
    const QPoint middle = button.rect().center();
    QTest::mousePress(button.window()->windowHandle(), Qt::LeftButton, {},
                      button.mapTo(&window, middle));
    expectOpen();
    QTest::mouseRelease(button.window()->windowHandle(), Qt::LeftButton, {},
                        button.mapTo(&window, middle));
    EXPECT_TRUE(menu.isVisible()) << "a click leaves it open";
    QTest::mousePress(menu.windowHandle(), Qt::LeftButton, {},
                      menu.mapFromGlobal(button.mapToGlobal(middle)));
    EXPECT_TRUE(runUntil([&] { return !menu.isVisible(); }));
    runFor(50);
    EXPECT_EQ(opened, 1);
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(MenuTest, DividersAreSeenAndCornersAreRound) {
    menu.addItem(QStringLiteral("A"));
    menu.addItem(MenuItem::separator());
    menu.addItem(QStringLiteral("B"));
    menu.addItem(MenuItem::sectionHeader(QStringLiteral("Section")));
    menu.addItem(QStringLiteral("C"));
    menu.popUpBelow(button);
    expectOpen();
    const QImage picture = menu.grab().toImage();
    const qreal scale = picture.devicePixelRatio();
    const QColor ground = menu.palette().color(QPalette::Window);
    const QRect divider = menu.actionGeometry(menu.itemAt(1));
    int brightest = 0;
    for (int y = divider.top(); y <= divider.bottom(); ++y) {
        brightest = std::max(
            brightest,
            picture.pixelColor((QPointF(divider.center().x(), y) * scale).toPoint()).lightness());
    }
    EXPECT_GT(brightest, ground.lightness() + 24);
    EXPECT_GT(menu.actionGeometry(menu.itemAt(3)).height(), 16) << "a header has a place";
    const QPoint corner = menu.contentsRect().topLeft();
    const bool isCut = !menu.mask().isEmpty() ? !menu.mask().contains(corner)
                                              : picture.pixelColor(corner * scale) != ground;
    EXPECT_TRUE(isCut);
    menu.hide();
}

TEST_F(MenuTest, ThePointerThatHasLeftMeanwhileIsNoticed) {
    menu.addItem(QStringLiteral("Item"));
    button.setAttribute(Qt::WA_UnderMouse);
    QCursor::setPos(window.mapToGlobal(QPoint(5, 250)));
    menu.popUpBelow(button);
    expectOpen();
    menu.hide();
    EXPECT_FALSE(button.underMouse());
}

// The style.

TEST(KitStyle, ReachesWhatAWidgetMakes) {
    QComboBox box;
    adoptKitStyle(box);
    box.addItems({QStringLiteral("One"), QStringLiteral("Two")});
    box.setEditable(true); // the line edit comes later
    QMenu stock(&box);
    QMenu* const below = stock.addMenu(QStringLiteral("Below"));
    below->addAction(QStringLiteral("Action"));
    showActive(box);
    box.showPopup();
    runFor(50);
    const QStyle* const kit = &KitStyle::shared();
    EXPECT_EQ(box.lineEdit()->style(), kit);
    EXPECT_EQ(box.view()->style(), kit);
    EXPECT_EQ(box.view()->window()->style(), kit) << "the list's container";
    box.hidePopup();
    stock.popup(QPoint(10, 10));
    below->popup(QPoint(50, 10));
    EXPECT_EQ(stock.style(), kit);
    EXPECT_EQ(below->style(), kit) << "a submenu";
    stock.hide();
    EXPECT_NE(QApplication::style(), kit) << "the program's own stays";
}

} // namespace
} // namespace platform
