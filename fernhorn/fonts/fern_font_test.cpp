#include "fernhorn/fonts/fern_font.hpp"

#include "fernhorn/fonts/resource_bundle_accessor.hpp"

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

TEST_F(FernFonts, GiveTheSameAppearanceByEitherOperation) {
    QWidget byName, short_;
    const auto pictureOf = [](QWidget& view) {
        auto* const text = new QLabel("Larkvox Äé", &view); // inherits the view's font
        view.resize(300, 80);
        text->resize(300, 80);
        return view.grab().toImage();
    };
    const QImage plain = pictureOf(*std::make_unique<QWidget>());
    // What really is drawn, not what was asked for.
    for (const auto& [font, style] : {std::pair(FernFont::rocket, "Regular"),
                                      {FernFont::dosisLight, "Light"},
                                      {FernFont::dosisMedium, "Medium"}}) {
        EXPECT_EQ(QRawFont::fromFont(CustomFontModifier{font, 20}.resolved()).styleName(), style);
    }
    fernFont(byName, FernFont::rocket, 36);
    rocketFont(short_, 36);
    const QImage picture = pictureOf(short_);
    EXPECT_EQ(picture, pictureOf(byName));
    EXPECT_NE(picture, plain);
}

} // namespace
} // namespace fernhorn
