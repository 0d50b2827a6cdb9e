#include "platform/testing/plain_button_style.hpp"
#include "platform/testing/window_testing.hpp"

#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace platform {
namespace {

using testing::showActive;

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
    Button button{QStringLiteral("Press"), std::make_shared<testing::PlainButtonStyle>(), &window};
    Button other{QStringLiteral("Other"), std::make_shared<testing::PlainButtonStyle>(), &window};
    QSignalSpy clicks{&button, &QAbstractButton::clicked};
    const QPoint inside{40, 12};
    const QPoint outside{40, 200};
};

// How it is pressed is tested for all buttons of the house at once.

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
    QTest::mousePress(&button, Qt::LeftButton, {}, inside);
    EXPECT_EQ(body(), QColor(255, 0, 0));
    QTest::mouseRelease(&button, Qt::LeftButton, {}, inside);
    button.setButtonStyle(std::make_shared<HighStyle>());
    EXPECT_EQ(body(), QColor(Qt::blue));
    EXPECT_EQ(button.sizeHint().height(), 30);
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

} // namespace
} // namespace platform
