#include "fernhorn/testing/dials_fixture.hpp"

#include <QAccessible>
#include <QApplication>
#include <QScrollArea>
#include <QTest>
#include <QToolTip>

#include <gmock/gmock.h>

namespace fernhorn {
namespace {

using platform::testing::runFor;
using platform::testing::runUntil;
using platform::testing::sendMove;
using platform::testing::sendWheel;
using platform::testing::showActive;
using testing::ElementsAre;
using testing::FloatNear;
using testing::IsEmpty;
using testing::Pair;
using Units = platform::AudioUnitParameterUnit;

TEST_F(Dials, PaintOnlyWhatTheirContentIsAskedFor) {
    std::vector<int> painted;
    auto& knob = place(
        new KnobControl(parameter, 6, 0.005F, 11, [&painted](QPainter&, const QRectF&, int index) {
            painted.push_back(index);
        }));
    runFor(20);
    EXPECT_EQ(knob.imageIndex(), 6);
    painted.clear();
    setByHost(0.52F); // the same frame
    runFor(20);
    EXPECT_THAT(painted, IsEmpty());
    setByHost(0.71F);
    runFor(20);
    EXPECT_THAT(painted, ElementsAre(8));
}

TEST_F(Dials, ADragHidesThePointerAndShowsTheValue) {
    use({.units = Units::percent, .range = {0, 100}, .defaultValue = 50});
    auto& dial = place(new KnobControl(parameter, 6, 0.005F, 51, [](auto&, const auto&, int) {}));
    QTest::mousePress(&dial, Qt::LeftButton, {}, {5, 5});
    EXPECT_FALSE(dial.lastDragValue().has_value());
    QTest::mouseMove(&dial, {5, -1});
    EXPECT_EQ(dial.lastDragValue(), -1);
    EXPECT_EQ(dial.cursor().shape(), Qt::BlankCursor);
    sendMove(dial, {5, -21});
    EXPECT_NEAR(value(), 60, 1e-4);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("60.0 %"));
    sendMove(dial, {5, -41}, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_NEAR(value(), 61, 1e-4);
    QTest::mousePress(&dial, Qt::RightButton, {}, {5, -41}); // in the midst of it
    QTest::mouseRelease(&dial, Qt::RightButton, {}, {5, -41});
    EXPECT_TRUE(sendWheel(dial, 120));
    QTest::keyClick(&dial, Qt::Key_End);
    EXPECT_TRUE(parameter->isBeingInteractivelyEdited());
    QTest::mouseRelease(&dial, Qt::LeftButton, {}, {5, -41});
    EXPECT_FALSE(parameter->isBeingInteractivelyEdited());
    EXPECT_EQ(dial.cursor().shape(), Qt::ArrowCursor);
    EXPECT_THAT(events, ElementsAre(Pair(1, 50), Pair(0, FloatNear(60, 1e-3F)),
                                    Pair(0, FloatNear(61, 1e-3F)), Pair(2, FloatNear(61, 1e-3F))));
}

TEST_F(Dials, WhateverTakesThePointerAwayReleasesTheTouch) {
    auto& dial = placeDial();
    const std::function<void()> ends[] = {
        [&] {
            sendMove(dial, {5, 60}, Qt::NoButton);
        }, // the release went elsewhere
        [&] { dial.setEnabled(false), dial.setEnabled(true); },
        [&] { dial.hide(), dial.show(); },
        [&] { window.close(), showActive(window); },
        [&] {
            QWidget other;
            showActive(other), QApplication::setActiveWindow(&window);
        },
        [&] {
            QFocusEvent event(QEvent::FocusOut);
            QCoreApplication::sendEvent(&dial, &event);
        },
        [&] { delete &dial; },
    };
    for (const auto& end : ends) {
        events.clear();
        QTest::mousePress(&dial, Qt::LeftButton, {}, {5, 5});
        QTest::mouseMove(&dial, {5, 20});
        EXPECT_EQ(events.size(), 1U);
        end();
        EXPECT_THAT(events, ElementsAre(Pair(1, 0.5F), Pair(2, 0.5F)));
        if (&end != std::end(ends) - 1) {
            sendMove(dial, {5, 90});
            QTest::mouseRelease(&dial, Qt::LeftButton, {}, {5, 90});
            EXPECT_EQ(events.size(), 2U) << &end - ends;
        }
    }
}

TEST_F(Dials, WheelAndKeysAreEdits) {
    auto& dial = placeDial();
    EXPECT_TRUE(sendWheel(dial, 120));
    EXPECT_TRUE(parameter->isBeingInteractivelyEdited());
    EXPECT_TRUE(runUntil([&] { return !parameter->isBeingInteractivelyEdited(); }));
    EXPECT_THAT(events, ElementsAre(Pair(1, 0.5F), Pair(0, FloatNear(0.52F, 1e-5F)),
                                    Pair(2, FloatNear(0.52F, 1e-5F))));
    setByHost(0.5F);
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        float value;
    } keys[] = {{Qt::Key_Right, {}, 0.52F},   {Qt::Key_Up, Qt::ShiftModifier, 0.522F},
                {Qt::Key_Left, {}, 0.502F},   {Qt::Key_Down, {}, 0.482F},
                {Qt::Key_PageUp, {}, 0.582F}, {Qt::Key_PageDown, {}, 0.482F},
                {Qt::Key_Home, {}, 0},        {Qt::Key_End, {}, 1},
                {Qt::Key_Delete, {}, 0.5F},   {Qt::Key_Up, Qt::ControlModifier, 0.5F},
                {Qt::Key_Space, {}, 0.5F}};
    for (const auto& [key, modifiers, expected] : keys) {
        events.clear();
        const float before = value();
        QTest::keyClick(&dial, key, modifiers);
        EXPECT_NEAR(value(), expected, 1e-5) << key;
        if (before != value()) {
            EXPECT_THAT(events, ElementsAre(Pair(1, before), Pair(0, value()), Pair(2, value())));
        } else {
            EXPECT_THAT(events, IsEmpty());
        }
    }
}

TEST_F(Dials, ScrollingAPageThatHoldsThemTurnsNone) {
    QScrollArea page;
    auto* const content = new QWidget;
    content->setFixedSize(100, 2000);
    page.setWidget(content);
    auto* const dial = new ChaosDial(parameter, ModernDialColor::grey, look, nullptr, {}, content);
    page.resize(140, 200);
    showActive(page);
    EXPECT_FALSE(sendWheel(*dial, 120));
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QCoreApplication::sendEvent(dial, &enter);
    EXPECT_FALSE(sendWheel(*dial, 120)); // the hand trembled
    EXPECT_THAT(events, IsEmpty());
    runFor(300);
    EXPECT_TRUE(sendWheel(*dial, 120));
    EXPECT_EQ(events.size(), 2U);
}

// Names, roles and actions are tested over the accessibility bus.
TEST_F(Dials, GiveScreenReadersTheValuesThatAreShown) {
    use({.units = Units::absoluteCents, .range = {0, 12800}, .defaultValue = 1200});
    auto& dial = placeDial();
    auto* const accessible = QAccessible::queryAccessibleInterface(&dial);
    auto& values = *accessible->valueInterface();
    EXPECT_NEAR(values.currentValue().toDouble(), 12, 1e-5);
    EXPECT_NEAR(values.maximumValue().toDouble(), 128, 1e-4);
    EXPECT_NEAR(values.minimumStepSize().toDouble(), 2.56, 1e-4);
    values.setCurrentValue(50.0);
    EXPECT_NEAR(values.currentValue().toDouble(), 50, 1e-5); // before the queue is drained
    EXPECT_EQ(value(), 5000);
    values.setCurrentValue(QStringLiteral("nonsense"));
    auto& actions = *accessible->actionInterface();
    actions.doAction(QAccessibleActionInterface::decreaseAction());
    EXPECT_NEAR(value(), 4744, 0.01);
    EXPECT_EQ(events.size(), 6U);
    dial.setEnabled(false);
    EXPECT_FALSE(actions.actionNames().contains(QAccessibleActionInterface::increaseAction()));
    actions.doAction(QAccessibleActionInterface::increaseAction());
    values.setCurrentValue(1.0);
    EXPECT_EQ(events.size(), 6U);

    auto* const label = QAccessible::queryAccessibleInterface(&placeLabel());
    EXPECT_EQ(label->role(), QAccessible::Button);
    label->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(static_cast<DialLabel*>(label->object())->isEditing());
}

} // namespace
} // namespace fernhorn
