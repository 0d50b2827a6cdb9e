#include "platform/controls/shadowed_label.hpp"

#include <gtest/gtest.h>

namespace platform {
namespace {

/// A label with white block letters on black.
class Label {
  public:
    explicit Label(std::vector<TextShadow> shadows)
        : label(QStringLiteral("H"), std::move(shadows)) {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(60);
        font.setStyleStrategy(QFont::NoAntialias);
        label.setFont(font);
        QPalette palette(Qt::black);
        palette.setColor(QPalette::WindowText, Qt::white);
        label.setPalette(palette);
        label.setAutoFillBackground(true);
        label.resize(100, 100);
    }
    QImage picture() { return label.grab().toImage().convertToFormat(QImage::Format_RGB32); }
    ShadowedLabel label;
};

TEST(ShadowedLabel, ShadowsFallWhereTheySay) {
    const QImage plain = Label({}).picture();
    const QImage shadowed = Label({{QColor(255, 0, 0, 128), 0, {6, 9}}}).picture();
    int inShadow = 0;
    for (int y = 10; y < 90; ++y) {
        for (int x = 10; x < 90; ++x) {
            const bool isText = plain.pixelColor(x, y) == QColor(Qt::white);
            const bool isBelow = plain.pixelColor(x - 6, y - 9) == QColor(Qt::white);
            const QColor wanted = isText ? QColor(Qt::white) : QColor(isBelow ? 128 : 0, 0, 0);
            ASSERT_NEAR(shadowed.pixelColor(x, y).red(), wanted.red(), 1) << x << ", " << y;
            ASSERT_EQ(shadowed.pixelColor(x, y).blue(), wanted.blue()) << x << ", " << y;
            inShadow += !isText && isBelow ? 1 : 0;
        }
    }
    EXPECT_GT(inShadow, 100);
}

TEST(ShadowedLabel, BlurSpreadsAndKeepsTheAmount) {
    // A white letter over a white shadow far below, so that the two do not meet.
    const auto shadow = [](double radius) {
        return Label({{QColor(255, 255, 255), radius, {0, 50}}}).picture().copy(0, 65, 100, 35);
    };
    const auto amount = [](const QImage& image) {
        double sum = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                sum += image.pixelColor(x, y).red() / 255.0;
            }
        }
        return sum;
    };
    const QImage sharp = shadow(0);
    const QImage soft = shadow(4);
    EXPECT_NEAR(amount(soft), amount(sharp), 0.1 * amount(sharp));
    EXPECT_GT(amount(sharp), 100);
    int between = 0;
    for (int x = 0; x < 100; ++x) {
        const int value = soft.pixelColor(x, 25).red();
        between += value > 10 && value < 245 ? 1 : 0;
        EXPECT_TRUE(sharp.pixelColor(x, 25).red() % 255 == 0) << x;
    }
    EXPECT_GT(between, 8);
    EXPECT_EQ(soft, shadow(4));
}

TEST(ShadowedLabel, FollowsItsText) {
    Label label({{QColor(255, 0, 0), 2, {0, 4}}});
    const QImage before = label.picture();
    label.label.setText(QStringLiteral("I"));
    EXPECT_NE(label.picture(), before);
    label.label.setText(QStringLiteral("H"));
    EXPECT_EQ(label.picture(), before);
}

} // namespace
} // namespace platform
