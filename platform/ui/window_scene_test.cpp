#include "platform/assets/asset_catalog.hpp"
#include "platform/controls/glyph_button.hpp"
#include "platform/controls/menu.hpp"
#include "platform/testing/window_testing.hpp"
#include "platform/ui/window_scene.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace platform {
namespace {

using testing::runUntil;
using testing::showActive;

class WindowSceneTest : public ::testing::Test {
  protected:
    WindowSceneTest() {
        content = new QWidget;
        label = new QLabel(QStringLiteral("Text"), content);
        label->setGeometry(50, 100, 200, 40);
        button = new QPushButton(QStringLiteral("Button"), content);
        button->setGeometry(50, 200, 200, 40);
        window.setContent(content);
        auto* const menu = new Menu(QStringLiteral("Larkvox"));
        menu->addItem(QStringLiteral("About"));
        window.setMenu(menu);
        window.move(100, 100);
        showActive(window);
    }

    /// Presses on a widget, moves by some points, and tells how far the window has come.
    QPoint drag(QWidget& widget, Qt::MouseButton mouseButton, QPoint distance) {
        const QPoint start = window.pos();
        const QPoint press = widget.mapToGlobal(QPoint(20, 20));
        // The pointer is where it is on the screen, wherever the window goes.
        const auto send = [&](QEvent::Type type, QPoint at, Qt::MouseButtons held) {
            testing::sendMouse(widget, type, widget.mapFromGlobal(QPointF(at)),
                               type == QEvent::MouseMove ? Qt::NoButton : mouseButton, held);
        };
        send(QEvent::MouseButtonPress, press, mouseButton);
        for (int i = 1; i <= 4; ++i) {
            send(QEvent::MouseMove, press + distance * i / 4, mouseButton);
        }
        send(QEvent::MouseButtonRelease, press + distance, Qt::NoButton);
        const QPoint moved = window.pos() - start;
        send(QEvent::MouseMove, press + 2 * distance, Qt::NoButton);
        EXPECT_EQ(window.pos() - start, moved) << "moves on after the release";
        return moved;
    }

    AssetCatalog assets{QDir()};
    WindowScene window{QStringLiteral("Larkvox"), QStringLiteral("main"), QSize(400, 572), assets};
    QWidget* content;
    QLabel* label;
    QPushButton* button;
};

TEST_F(WindowSceneTest, EverythingButControlsMovesIt) {
    EXPECT_EQ(drag(*label, Qt::LeftButton, {40, 24}), QPoint(40, 24));
    EXPECT_EQ(drag(*content, Qt::LeftButton, {-40, 80}), QPoint(-40, 80));
    EXPECT_EQ(drag(*label, Qt::LeftButton, {1, 1}), QPoint()); // a click that is not quite still
    EXPECT_EQ(drag(*label, Qt::RightButton, {40, 24}), QPoint());
    QSignalSpy clicks(button, &QAbstractButton::clicked);
    EXPECT_EQ(drag(*button, Qt::LeftButton, {40, 24}), QPoint());
    button->setEnabled(false);
    EXPECT_EQ(drag(*button, Qt::LeftButton, {40, 24}), QPoint());
}

TEST_F(WindowSceneTest, KeysCloseAndMinimise) {
    for (const QKeySequence& keys :
         {QKeySequence(Qt::CTRL | Qt::Key_W), QKeySequence(Qt::ALT | Qt::Key_F4)}) {
        showActive(window);
        QTest::keySequence(&window, keys);
        EXPECT_FALSE(window.isVisible()) << keys.toString().toStdString();
    }
    showActive(window);
    QTest::keyClick(&window, Qt::Key_M, Qt::ControlModifier);
    EXPECT_TRUE(window.isMinimized());
    window.showNormal();

    bool hasQuit = false;
    QTimer::singleShot(0, &window, [&] {
        showActive(window);
        QTest::keyClick(&window, Qt::Key_Q, Qt::ControlModifier);
    });
    QTimer::singleShot(3000, &window, [] { QCoreApplication::exit(1); });
    hasQuit = QApplication::exec() == 0;
    EXPECT_TRUE(hasQuit);
}

TEST_F(WindowSceneTest, OpensItsMenu) {
    const auto opensBy = [&](const std::function<void()>& action) {
        action();
        const bool isOpen = runUntil([&] { return window.menu()->isVisible(); }, 500);
        QTest::keyClick(window.menu(), Qt::Key_Escape);
        return isOpen && runUntil([&] { return !window.menu()->isVisible(); }, 500);
    };
    button->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(opensBy([&] { QTest::keyClick(&window, Qt::Key_F10); }));
    EXPECT_TRUE(opensBy([&] { QTest::keyClick(&window, Qt::Key_Menu); }));
    for (QWidget* const widget : {content, static_cast<QWidget*>(label)}) {
        EXPECT_TRUE(opensBy([&] {
            QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5},
                                    widget->mapToGlobal(QPoint(5, 5)));
            QCoreApplication::sendEvent(widget, &event);
        }));
    }
    EXPECT_TRUE(button->hasFocus());
    // The menu bar that is there for the desktop only takes no focus either.
    QTest::keyPress(&window, Qt::Key_Alt, Qt::AltModifier);
    QTest::keyRelease(&window, Qt::Key_Alt);
    EXPECT_TRUE(button->hasFocus());
}

TEST_F(WindowSceneTest, TabGoesThroughTheContentFirst) {
    EXPECT_TRUE(button->hasFocus());
    QStringList names;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(&window, Qt::Key_Tab);
        names << QApplication::focusWidget()->accessibleName();
    }
    EXPECT_EQ(names, QStringList({QStringLiteral("Menu"), QStringLiteral("Minimize"),
                                  QStringLiteral("Close")}));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
}

} // namespace
} // namespace platform
