#include "fernhorn/fonts/fern_font.hpp"

#include "fernhorn/fonts/resource_bundle_accessor.hpp"

#include <QFontInfo>
#include <QLabel>
#include <QRawFont>

#include <gmock/gmock.h>

namespace fernhorn {
namespace {

class FernFonts : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        EXPECT_EQ(resourceBundle().assets().registerFonts(), QStringList());
    }
};

TEST_F(FernFonts, AreFoundUnderTheirNames) {
    const struct {
        FernFont font;
        QString name, family, style;
    } cases[] = {{FernFont::rocket, "Rocket", "Rocket", "Regular"},
                 {FernFont::dosisLight, "Dosis-Light", "Dosis", "Light"},
                 {FernFont::dosisMedium, "Dosis-Medium", "Dosis", "Medium"}};
    for (const auto& expected : cases) {
        EXPECT_EQ(fontName(expected.font), expected.name);
        const QFont font = CustomFontModifier{expected.font, 20}.resolved();
        EXPECT_EQ(QFontInfo(font).pixelSize(), 20);
        // What really is drawn, not what was asked for.
        const QRawFont drawn = QRawFont::fromFont(font);
        EXPECT_EQ(drawn.familyName(), expected.family);
        EXPECT_EQ(drawn.styleName(), expected.style);
    }
}

TEST_F(FernFonts, GiveTheSameAppearanceByEitherOperation) {
    QWidget byName, short_;
    const auto pictureOf = [](QWidget& view) {
        auto* const text = new QLabel("Larkvox Äé", &view); // inherits the view's font
        view.resize(300, 80);
        text->resize(300, 80);
        return view.grab().toImage();
    };
    const QImage plain = pictureOf(*std::make_unique<QWidget>());
    fernFont(byName, FernFont::rocket, 36);
    rocketFont(short_, 36);
    const QImage picture = pictureOf(short_);
    EXPECT_EQ(picture, pictureOf(byName));
    EXPECT_NE(picture, plain);
}

} // namespace
} // namespace fernhorn
