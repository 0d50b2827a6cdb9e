// The buttons that do more than be clicked: back, tool and cursor buttons.

#include "driftwood/controls/back_button.hpp"
#include "driftwood/controls/cursor_button.hpp"
#include "driftwood/controls/tool_button.hpp"
#include "driftwood/testing/button_testing.hpp"
#include "platform/controls/current_event.hpp"
#include "platform/testing/window_testing.hpp"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QTest>

#include <gtest/gtest.h>

namespace driftwood {
namespace {

using platform::testing::runFor;
using platform::testing::showActive;
using testing::Counter;
using namespace std::chrono_literals;

TEST(BackButtons, FadeOutOfReach) {
    QWidget window;
    BackButton button(QStringLiteral("A"), &window);
    showActive(window);
    for (const double alpha : {0.4, 0.0, 0.1}) {
        button.setAlphaValue(alpha);
        EXPECT_EQ(button.isVisible(), alpha > 0);
        EXPECT_EQ(window.childAt(button.geometry().center()) != nullptr, alpha > 0);
    }
    auto* const row = new QHBoxLayout(&window);
    auto* const neighbour = new StyledButton(QStringLiteral("B"));
    row->addWidget(&button);
    row->addWidget(neighbour);
    runFor(20);
    const QPoint place = neighbour->pos();
    button.setAlphaValue(0);
    runFor(20);
    EXPECT_EQ(neighbour->pos(), place); // its place stays
}

/// A window that takes actions without a target.
class Desk final : public QWidget, public platform::ActionTarget {
  public:
    void note(platform::Control&) { ++notes; }
    int notes = 0;
};

TEST(ToolButtons, SendAnActionWithoutATargetThroughTheApplication) {
    Desk desk;
    QWidget panel(&desk);
    ToolButton button({}, &panel);
    button.setSecondaryAction(&Desk::note);
    EXPECT_TRUE(button.hasSecondaryClick());
    EXPECT_EQ(button.secondaryTarget(), nullptr);
    button.setToolTip(QStringLiteral("Pencil"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->text(QAccessible::Name), "Pencil");
    QTest::mouseClick(&button, Qt::RightButton);
    EXPECT_EQ(desk.notes, 1);
    auto other = std::make_unique<Desk>();
    button.setSecondaryAction(&Desk::note, *other);
    QTest::mouseClick(&button, Qt::RightButton);
    EXPECT_EQ(other->notes, 1);
    EXPECT_EQ(desk.notes, 1);
    other.reset();
    QTest::mouseClick(&button, Qt::RightButton);
    EXPECT_EQ(desk.notes, 2);
    panel.setParent(nullptr);
    QTest::mouseClick(&button, Qt::RightButton); // nobody is there
    EXPECT_EQ(desk.notes, 2);
}

TEST(ToolButtons, SendOneOfTheirActions) {
    ToolButton button(QStringLiteral("A"), nullptr, 40ms);
    button.resize(32, 32);
    showActive(button);
    Counter primary(button);
    int secondary = 0;
    const auto click = [&](Qt::MouseButton with, Qt::KeyboardModifiers modifiers = {}) {
        return [&button, with, modifiers] { QTest::mouseClick(&button, with, modifiers); };
    };
    const auto expectSent = [&](const char* what, const std::function<void()>& act,
                                int wantedPrimary, int wantedSecondary) {
        primary.count = secondary = 0;
        act();
        EXPECT_EQ(primary.count, wantedPrimary) << what;
        EXPECT_EQ(secondary, wantedSecondary) << what;
        EXPECT_FALSE(button.isHighlighted()) << what;
    };
    const auto controlClick = click(Qt::LeftButton, Qt::ControlModifier);
    expectSent("nothing to do yet", click(Qt::RightButton), 0, 0);
    expectSent("it is no click, either", controlClick, 0, 0);
    button.setSecondaryAction([&](platform::ActionTarget&, platform::Control&) { ++secondary; },
                              primary);
    expectSent(
        "a click", [&] { QTest::mouseClick(&button, Qt::LeftButton), runFor(80); }, 1, 0);
    expectSent(
        "while it is still held",
        [&] {
            QTest::mousePress(&button, Qt::LeftButton);
            EXPECT_TRUE(button.isHighlighted());
            runFor(80);
        },
        0, 1);
    expectSent(
        "its end", [&] { QTest::mouseRelease(&button, Qt::LeftButton); }, 0, 0);
    expectSent("the other button", click(Qt::RightButton), 0, 1);
    expectSent("with Control", controlClick, 0, 1);
    expectSent(
        "the menu key",
        [&] {
            QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
            QCoreApplication::sendEvent(&button, &menuKey);
        },
        0, 1);
    expectSent(
        "the second click of a series is not held",
        [&] {
            platform::testing::sendMouse(button, QEvent::MouseButtonDblClick, {5, 5},
                                         Qt::LeftButton, Qt::LeftButton);
            runFor(80);
            QTest::mouseRelease(&button, Qt::LeftButton);
        },
        1, 0);
    button.setEnabled(false);
    expectSent("disabled", click(Qt::RightButton), 0, 0);
}

TEST(CursorButtons, HaveAPointerOfTheirOwn) {
    CursorButton button({});
    button.resize(20, 20);
    showActive(button);
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QCoreApplication::sendEvent(&button, &enter);
    EXPECT_EQ(button.cursor().hotSpot(), QPoint(3, 4));
    button.setAttribute(Qt::WA_UnderMouse); // as the toolkit does
    button.setCursorHotSpot({1, 2});
    EXPECT_EQ(button.cursor().hotSpot(), QPoint(1, 2));
    // What an action puts on top of it stays there when the pointer leaves.
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    platform::testing::sendEvent(button, QEvent::Leave);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QGuiApplication::restoreOverrideCursor();

    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_EQ(button.alphaValue(), 0.5);
    QTest::mouseMove(&button, {100, 100});
    EXPECT_EQ(button.alphaValue(), 1);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, {100, 100});
}

TEST(CursorButtons, TellTheirActionTheEventThatSentIt) {
    CursorButton button({});
    button.resize(20, 20);
    std::vector<platform::InputEvent> events;
    button.setAction(
        [&](platform::ActionTarget&, platform::Control&) {
            events.push_back(platform::currentEvent() != nullptr ? *platform::currentEvent()
                                                                 : platform::InputEvent());
        },
        button);
    QTest::mouseClick(&button, Qt::LeftButton, Qt::AltModifier);
    QTest::keyClick(&button, Qt::Key_Space, Qt::ShiftModifier);
    button.performClick();
    using platform::EventKind;
    EXPECT_EQ(events, (std::vector<platform::InputEvent>{{EventKind::leftMouseUp, {.option = true}},
                                                         {EventKind::keyUp, {.shift = true}},
                                                         {}}));
    EXPECT_EQ(platform::currentEvent(), nullptr);
}

} // namespace
} // namespace driftwood
