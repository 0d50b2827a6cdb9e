#include "gallery/driftwood/preset_pane.hpp"

#include "platform/testing/window_testing.hpp"

#include <QTest>

#include <gtest/gtest.h>

namespace gallery {
namespace {

using driftwood::FieldValue;

class PresetPanes : public ::testing::Test {
  protected:
    PresetPanes() {
        std::vector<Preset> bank(3);
        bank[0].constant = "bass";
        bank[2].tune = "$drift * 2";
        edits = std::make_shared<PresetEdits>(std::move(bank));
        edits->select(2);
        pane = std::make_unique<PresetPane>(edits);
        pane->changed = [this] { ++changes; };
        platform::testing::showActive(*pane);
    }
    void undo() {
        edits->undo();
        pane->refresh();
    }

    std::shared_ptr<PresetEdits> edits;
    std::unique_ptr<PresetPane> pane;
    int changes = 0;
};

TEST_F(PresetPanes, TakeATypedStepBackInAllOfTheirFields) {
    auto& name = pane->constant();
    EXPECT_EQ(name.stringValue(), QString()) << "mixed";
    EXPECT_EQ(name.placeholderString(), QStringLiteral("Mixed"));
    name.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&name, QStringLiteral("wide+"));
    EXPECT_TRUE(name.popoverController().isShown()) << "while one types";
    QTest::keyClick(&name, Qt::Key_Return);
    EXPECT_EQ(changes, 0) << "refused";
    QTest::keyClick(&name, Qt::Key_End);
    QTest::keyClick(&name, Qt::Key_Backspace);
    QTest::keyClick(&name, Qt::Key_Tab);
    EXPECT_EQ(name.stringValue(), QStringLiteral("$wide"));
    EXPECT_EQ(edits->common(&Preset::constant), "wide");
    EXPECT_EQ(edits->presets()[2].constant, "preset") << "not selected";
    undo();
    EXPECT_EQ(edits->presets()[0].constant, "bass");
    EXPECT_EQ(edits->presets()[1].constant, "preset");
    EXPECT_EQ(name.stringValue(), QString());

    auto& tune = pane->tune().textField();
    tune.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&tune, QStringLiteral("-7"));
    QTest::keyClick(&tune, Qt::Key_Return);
    pane->setFocus();
    EXPECT_EQ(edits->common(&Preset::tune), FieldValue(-7.0));
    EXPECT_EQ(changes, 2) << "leaving it is no second step";
    undo();
    EXPECT_EQ(tune.objectValue(), FieldValue(0.0));
    edits->select(3);
    pane->refresh();
    EXPECT_EQ(tune.placeholderString(), QStringLiteral("Mixed"));
    EXPECT_FALSE(pane->tune().icon()->isEnabled());
}

TEST_F(PresetPanes, TakeAWholeDragOfANumberBack) {
    auto& icon = *pane->tune().icon();
    quint64 now = 1000;
    const auto send = [&](QEvent::Type type, double y) {
        QMouseEvent event(type, QPointF(7, y), icon.mapToGlobal(QPointF(7, y)),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
        event.setTimestamp(now += 10);
        QCoreApplication::sendEvent(&icon, &event);
    };
    send(QEvent::MouseButtonPress, 12);
    for (int move = 1; move <= 5; ++move) {
        send(QEvent::MouseMove, 12 - 8 * move);
    }
    send(QEvent::MouseButtonRelease, -28);
    EXPECT_EQ(edits->common(&Preset::tune), FieldValue(4.0));
    undo();
    EXPECT_EQ(edits->common(&Preset::tune), FieldValue(0.0)) << "one step";
    EXPECT_EQ(pane->tune().textField().stringValue(), QStringLiteral("0 ct"));
}

} // namespace
} // namespace gallery
