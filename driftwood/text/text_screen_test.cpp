#include "driftwood/bridges/bundle_asset_source.hpp"
#include "driftwood/text/validating_text_field.hpp"

#include "platform/testing/window_testing.hpp"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace driftwood {
namespace {

using platform::testing::runUntil;

/// Sends each key to whatever has the keyboard by then.
void type(const QString& text) {
    for (const QChar character : text) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClicks(QApplication::focusWidget(), QString(character));
    }
}

TEST(FieldsOnTheScreen, ShowWhatIsTypedAndTheirMessageWithoutLosingTheKeyboard) {
    QWidget window;
    window.setGeometry(100, 100, 260, 120);
    ValidatingTextField field(&window);
    field.setFormatter(std::make_shared<ConstantNameFormatter>());
    field.setGeometry(20, 20, 200, 24);
    platform::testing::showActive(window);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(60, 32));
    ASSERT_TRUE(field.hasFocus());
    type(QStringLiteral("ab"));
    const auto ink = [&] { // on the screen, between the lines of the bezel
        const QImage picture = platform::testing::screenshot(field).copy(8, 6, 60, 12);
        int bright = 0;
        for (int i = 0; i < 60 * 12; ++i) {
            bright += picture.pixelColor(i % 60, i / 60).lightness() > 150 ? 1 : 0;
        }
        return bright;
    };
    EXPECT_TRUE(runUntil([&] { return ink() > 10; })) << ink();
    type(QStringLiteral(" "));
    SimpleTextViewPopover& popover = field.popoverController().popover();
    ASSERT_TRUE(runUntil(
        [&] { return popover.windowHandle() != nullptr && popover.windowHandle()->isExposed(); }));
    const auto showsBubble = [&] {
        const QPoint inside(popover.width() / 2, popover.height() - 4); // under the text
        const QColor ground = toQColor(SimpleTextViewPopover::style().backgroundColor());
        return platform::testing::screenColor(popover, inside).rgb() == ground.lighter(130).rgb();
    };
    EXPECT_TRUE(runUntil(showsBubble));
    EXPECT_GE(popover.y(), field.mapToGlobal(QPoint(0, field.height())).y() - 1);
    EXPECT_EQ(QApplication::activeWindow(), &window);
    EXPECT_EQ(QApplication::focusWidget(), &field);
    type(QStringLiteral("c"));
    EXPECT_EQ(field.stringValue(), QStringLiteral("ab c"));
    const QPoint before = popover.pos() - window.pos();
    window.move(window.pos() + QPoint(150, 90));
    EXPECT_TRUE(runUntil([&] { return popover.pos() - window.pos() == before && showsBubble(); }));
    // At the lower edge of the screen it stands above.
    window.move(100, window.screen()->geometry().bottom() - 60);
    EXPECT_TRUE(runUntil([&] {
        return popover.geometry().bottom() <= field.mapToGlobal(QPoint(0, 1)).y() &&
               window.screen()->geometry().contains(popover.geometry());
    }));
    QTest::keyClick(&field, Qt::Key_Backspace);
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_TRUE(runUntil([&] { return !popover.isVisible(); }));
    EXPECT_TRUE(field.isValid());
}

} // namespace
} // namespace driftwood
