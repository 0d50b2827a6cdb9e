#include "platform/assets/asset_catalog.hpp"
#include "platform/controls/button.hpp"
#include "platform/controls/glyph_button.hpp"
#include "platform/controls/image_view.hpp"
#include "platform/testing/window_testing.hpp"

#include <QAccessible>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace platform {
namespace {

using testing::runFor;
using testing::runUntil;
using testing::showActive;

/// Tells its state by colour: pressed is red, disabled is dark.
class PlainStyle final : public ButtonStyle {
  public:
    [[nodiscard]] QFont font() const override { return {}; }
    [[nodiscard]] double height() const override { return 24; }
    void paint(QPainter& painter, const QRectF& body,
               const ButtonConfiguration& configuration) const override {
        const int value = configuration.isEnabled ? 255 : 100;
        painter.fillRect(body, configuration.isPressed ? QColor(value, 0, 0) : QColor(0, value, 0));
    }
};

class ButtonTest : public ::testing::Test {
  protected:
    ButtonTest() {
        button.setGeometry(10, 10, 80, 24);
        other.setGeometry(10, 50, 80, 24);
        showActive(window);
    }
    QColor body() { return button.grab().toImage().pixelColor(20, 12); }
    bool hasRing() {
        const QRgb corner = button.grab().toImage().pixel(40, 0);
        return corner != button.grab().toImage().pixel(40, 8);
    }

    QWidget window;
    Button button{QStringLiteral("Press"), std::make_shared<PlainStyle>(), &window};
    Button other{QStringLiteral("Other"), std::make_shared<PlainStyle>(), &window};
    QSignalSpy clicks{&button, &QAbstractButton::clicked};
    const QPoint inside{40, 12};
    const QPoint outside{40, 200};
};

TEST_F(ButtonTest, ClicksWhenReleasedInside) {
    QTest::mousePress(&button, Qt::LeftButton, {}, inside);
    EXPECT_EQ(body(), QColor(255, 0, 0));
    QTest::mouseRelease(&button, Qt::LeftButton, {}, inside);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(body(), QColor(0, 255, 0));

    QTest::mousePress(&button, Qt::LeftButton, {}, inside);
    QTest::mouseMove(&button, outside);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, outside);
    QTest::mouseClick(&button, Qt::RightButton, {}, inside);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(ButtonTest, LooksAndMeasuresLikeTheStyleItIsGiven) {
    class HighStyle final : public ButtonStyle {
        [[nodiscard]] QFont font() const override { return {}; }
        [[nodiscard]] double height() const override { return 30; }
        void paint(QPainter& painter, const QRectF& rect,
                   const ButtonConfiguration& /*configuration*/) const override {
            painter.fillRect(rect, Qt::blue);
        }
    };
    EXPECT_EQ(body(), QColor(0, 255, 0));
    button.setButtonStyle(std::make_shared<HighStyle>());
    EXPECT_EQ(body(), QColor(Qt::blue));
    EXPECT_EQ(button.sizeHint().height(), 30);
}

TEST_F(ButtonTest, KeysPressIt) {
    button.setFocus(Qt::TabFocusReason);
    int wanted = 0;
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyPress(&button, key);
        EXPECT_EQ(body(), QColor(255, 0, 0));
        QTest::keyRelease(&button, key);
        ++wanted;
        EXPECT_TRUE(runUntil([&] { return clicks.count() == wanted; }));
    }
    for (int i = 0; i < 5; ++i) { // a key that is held does not press again and again
        QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), true);
        QCoreApplication::sendEvent(&button, &repeat);
    }
    QTest::keyClick(&button, Qt::Key_A);
    runFor(200);
    EXPECT_EQ(clicks.count(), wanted);
}

TEST_F(ButtonTest, GivesWayButDoesNothingWhileDisabled) {
    button.setEnabled(false);
    EXPECT_EQ(body(), QColor(0, 100, 0));
    for (int i = 0; i < 2; ++i) {
        QTest::mousePress(&button, Qt::LeftButton, {}, inside);
        EXPECT_EQ(body(), QColor(100, 0, 0));
        QTest::mouseRelease(&button, Qt::LeftButton, {}, inside);
        EXPECT_EQ(body(), QColor(0, 100, 0));
    }
    // It follows the pointer as an enabled one does.
    QTest::mousePress(&button, Qt::LeftButton, {}, inside);
    QTest::mouseMove(&button, outside);
    EXPECT_EQ(body(), QColor(0, 100, 0));
    QTest::mouseMove(&button, inside);
    EXPECT_EQ(body(), QColor(100, 0, 0));
    QTest::mouseRelease(&button, Qt::LeftButton, {}, outside);
    EXPECT_EQ(body(), QColor(0, 100, 0));
    QTest::mouseDClick(&button, Qt::LeftButton, {}, inside);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 0);

    // Neither enabling nor disabling it while it is held leaves it pressed.
    QTest::mousePress(&button, Qt::LeftButton, {}, inside);
    button.setEnabled(true);
    EXPECT_EQ(body(), QColor(0, 255, 0));
    QTest::mouseRelease(&button, Qt::LeftButton, {}, inside);
    QTest::mousePress(&button, Qt::LeftButton, {}, inside);
    button.setEnabled(false);
    EXPECT_EQ(body(), QColor(0, 100, 0));
    QTest::mouseRelease(&button, Qt::LeftButton, {}, inside);
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(ButtonTest, ShowsFocusOnlyWhenItCameByKey) {
    QWidget elsewhere;
    const auto leaveAndReturn = [&] {
        showActive(elsewhere);
        EXPECT_FALSE(hasRing());
        showActive(window);
        EXPECT_TRUE(button.hasFocus());
    };
    button.setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(hasRing());
    leaveAndReturn();
    EXPECT_FALSE(hasRing());

    QTest::keyClick(&window, Qt::Key_Tab);
    QTest::keyClick(&window, Qt::Key_Backtab);
    ASSERT_TRUE(button.hasFocus());
    EXPECT_TRUE(hasRing());
    leaveAndReturn();
    EXPECT_TRUE(hasRing());

    QTest::keyClick(&window, Qt::Key_Tab);
    EXPECT_FALSE(hasRing());
}

TEST_F(ButtonTest, ScreenReadersKnowTheControls) {
    const AssetCatalog assets{QDir()};
    GlyphButton glyph(QStringLiteral("window-close"), QStringLiteral("Close"), assets, &window);
    QSignalSpy glyphClicks(&glyph, &QAbstractButton::clicked);
    struct Case {
        QWidget* widget;
        const char* name;
        QSignalSpy* clicks;
    };
    for (const Case& control :
         {Case{&button, "Press", &clicks}, Case{&glyph, "Close", &glyphClicks}}) {
        QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(control.widget);
        ASSERT_NE(spoken, nullptr);
        EXPECT_EQ(spoken->role(), QAccessible::Button);
        EXPECT_EQ(spoken->text(QAccessible::Name), QString::fromLatin1(control.name));
        EXPECT_TRUE(spoken->state().focusable);
        spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_TRUE(runUntil([&] { return control.clicks->count() == 1; })) << control.name;
    }
    const ImageView picture(nullptr, Qt::white, QStringLiteral("Logo"), &window);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(const_cast<ImageView*>(&picture))
                  ->text(QAccessible::Name),
              QStringLiteral("Logo"));
}

} // namespace
} // namespace platform
