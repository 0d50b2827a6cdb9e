#include "driftwood/declarative/button_styles.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "platform/assets/image_painter.hpp"
#include "platform/testing/window_testing.hpp"

#include <QPainter>
#include <QTest>

#include <gmock/gmock.h>

namespace driftwood {
namespace {

using platform::Button;
using platform::testing::largestDifference;

/// The picture of a button's body at three pixels a point, on black.
template<class Paint>
QImage picture(const Button& button, Paint paint) {
    QImage image(button.size() * 3, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(3);
    image.fill(Qt::black);
    QPainter painter(&image);
    paint(painter);
    painter.end();
    return image;
}

/// Looks at a button: the bezel everywhere but under the label, and the label's full ink.
void expectLook(Button& button, const char* bezelName, const char* colorName, double opacity) {
    const auto& assets = resourceBundle().assets();
    const QImage bezel = picture(button, [&](QPainter& painter) {
        platform::paintImage(painter, button.rect(), *assets.image(bezelName));
    });
    const QImage whole = picture(
        button, [&](QPainter& painter) { button.render(&painter, {}, {}, QWidget::DrawChildren); });
    const QColor color = assets.color(colorName);
    ASSERT_TRUE(color.isValid());
    const auto mixed = [&](int ink, int below) { return qRound(below + (ink - below) * opacity); };
    int inked = 0;
    int full = 0;
    for (int y = 0; y < whole.height(); ++y) {
        for (int x = 0; x < whole.width(); ++x) {
            const QRgb below = bezel.pixel(x, y);
            const QRgb expected =
                qRgb(mixed(color.red(), qRed(below)), mixed(color.green(), qGreen(below)),
                     mixed(color.blue(), qBlue(below)));
            inked += largestDifference(whole.pixel(x, y), below) > 0;
            full += largestDifference(whole.pixel(x, y), expected) <= 2;
        }
    }
    // A label covers some, and its stems fully; the rest is the bezel as it is.
    EXPECT_GT(full, 40) << bezelName << colorName;
    EXPECT_GT(inked, full);
    EXPECT_LT(inked, whole.width() * whole.height() / 3);
}

TEST(ButtonStyles, PaintTheirLabelOverTheBezelOfTheirState) {
    ASSERT_TRUE(resourceBundle().assets().registerFonts().isEmpty());
    const std::shared_ptr<const platform::ButtonStyle> styles[] = {
        std::make_shared<DefaultKestrelButtonStyle>(), std::make_shared<FennickButtonStyle>()};
    for (const auto& style : styles) {
        const bool dims = style == styles[0];
        QWidget window;
        window.resize(200, 60);
        auto& button = *new Button("HELLIT", style, &window);
        button.setLabelWidth(120);
        button.setGeometry(QRect(QPoint(20, 20), button.sizeHint()));
        EXPECT_EQ(button.size(), QSize(120, 24));
        QFont large = button.font();
        large.setPixelSize(40);
        button.setFont(large); // the style's is what counts
        button.setLabelWidth(0);
        EXPECT_EQ(button.sizeHint().height(), 24);
        EXPECT_LT(Button("A", style).sizeHint().width(), 20); // as wide as its label
        EXPECT_EQ(style->padding(), QMarginsF(-2, 0, -2, 0));
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));

        const auto pressAndRelease = [&](double opacity) {
            int clicks = 0;
            const auto connection =
                QObject::connect(&button, &Button::clicked, &button, [&] { ++clicks; });
            expectLook(button, "dwk-button", "Grey 85%", opacity);
            QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, {80, 30});
            expectLook(button, "dwk-button-down", "Grey 50%", opacity);
            QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, {80, 30});
            expectLook(button, "dwk-button", "Grey 85%", opacity);
            EXPECT_EQ(clicks, button.isEnabled() ? 1 : 0);
            QObject::disconnect(connection);
        };
        pressAndRelease(1);
        // The enabled state is that of the surrounding views.
        window.setEnabled(false);
        pressAndRelease(dims ? 0.5 : 1);
    }
}

} // namespace
} // namespace driftwood
