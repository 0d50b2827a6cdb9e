#include "driftwood/bridges/backport.hpp"
#include "driftwood/bridges/bundle_asset_source.hpp"
#include "driftwood/bridges/first_responder.hpp"
#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/bridges/rounded_path.hpp"
#include "driftwood/bridges/shake.hpp"
#include "driftwood/bridges/view_geometry.hpp"
#include "driftwood/style/button_cell_style.hpp"
#include "driftwood/style/styles.hpp"
#include "driftwood/util/control_publisher.hpp"
#include "platform/assets/asset_catalog.hpp"
#include "platform/testing/window_testing.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <gtest/gtest.h>

#include <array>

namespace driftwood {
namespace {

TEST(BundleAssetSource, MonospacedDigitsAreOfOneWidth) {
    installKitAssets();
    const QFontMetricsF metrics(toQFont(Styles::BaseStyles::normalMonoFont()));
    for (char digit = '1'; digit <= '9'; ++digit) {
        EXPECT_NEAR(metrics.horizontalAdvance(QLatin1Char(digit)),
                    metrics.horizontalAdvance(QLatin1Char('0')), 0.05)
            << digit;
    }
    // Letters stay proportional.
    EXPECT_LT(metrics.horizontalAdvance(QLatin1Char('i')),
              metrics.horizontalAdvance(QLatin1Char('m')));
}

TEST(BundleAssetSource, GivesTheStylesWhatTheBundleHasAndNullOtherwise) {
    installKitAssets();
    const platform::AssetCatalog& catalog = resourceBundle().assets();
    const ButtonCellStyle style;
    EXPECT_EQ(toQColor(style.textColor(StyledControlState(1))), catalog.color("Grey 85%"));
    EXPECT_EQ(toQColor(style.backgroundColor()).alpha(), 0);
    EXPECT_EQ(toQFont(style.font()).weight(), QFont::Medium);
    const Image& bezel = style.bezelImage(StyledControlState(9));
    const platform::ImageAsset* const asset = toImageAsset(bezel);
    ASSERT_NE(asset, nullptr);
    EXPECT_EQ(asset, catalog.image("dwk-button-down"));
    EXPECT_EQ(bezel->size(), (core::Size{asset->size().width(), asset->size().height()}));
    EXPECT_EQ(bezel, assetSource().image("dwk-button-down")) << "the same picture is equal";
    EXPECT_NE(bezel, assetSource().image("dwk-button"));
    EXPECT_EQ(makeColor(QColor(1, 2, 3)), makeColor(QColor(1, 2, 3)));
    EXPECT_FALSE(assetSource().color("no such colour"));
    EXPECT_FALSE(assetSource().image("no such image"));
    EXPECT_EQ(toImageAsset({}), nullptr);
    EXPECT_EQ(toQColor({}).alpha(), 0);
}

class ClickableWidget final : public QWidget, public ClickableView {
  public:
    core::Stream<Click>& clicked() override { return clicks; }
    core::Subject<Click> clicks;
};

class FieldWithAction final : public QLineEdit, public platform::Control {
  public:
    using QLineEdit::QLineEdit;
};

TEST(FirstResponder, FollowsEventsAndClicksIntoTheKeyWindow) {
    QWidget window;
    QWidget other;
    FieldWithAction first(&window);
    auto second = std::make_unique<QLineEdit>(&window);
    platform::testing::showActive(window);
    platform::testing::showActive(other);

    auto subscription = makeFirstResponder(controlEventPublisher(first).subject(), first);
    EXPECT_TRUE(first.sendAction());
    EXPECT_TRUE(platform::testing::runUntil([&] { return window.isActiveWindow(); }));
    EXPECT_EQ(QApplication::focusWidget(), &first);

    ClickableWidget icon;
    std::vector<core::Subscription> cancellables;
    const std::array pairs{ClickableControlPair{icon, *second}};
    makeFirstResponderOnClick(pairs, cancellables);
    icon.clicks.send({});
    EXPECT_EQ(QApplication::focusWidget(), second.get());
    second.reset();
    icon.clicks.send({}); // a control that is gone is nobody's concern
    EXPECT_EQ(cancellables.size(), 1U);
}

TEST(Shake, DrawsBesideItsPlaceAndEndsWhereItBegan) {
    QWidget window;
    window.resize(100, 40);
    window.setStyleSheet("background: black");
    QWidget view(&window);
    view.setGeometry(40, 10, 20, 20);
    view.setStyleSheet("background: red");
    auto* const effect = new ShakeGraphicsEffect({10, 1, 0});
    view.setGraphicsEffect(effect);
    const auto span = [&] { // the red pixels of the middle row
        const QImage image = window.grab().toImage().scaledToWidth(100);
        int from = 100;
        int to = -1;
        for (int x = 0; x < 100; ++x) {
            if (image.pixelColor(x, 20).red() > 128) {
                from = std::min(from, x);
                to = x;
            }
        }
        return std::pair(from, to);
    };
    EXPECT_EQ(span(), std::pair(40, 59));
    effect->setProgress(0.5);
    EXPECT_EQ(span(), std::pair(50, 69));
    EXPECT_EQ(view.geometry(), QRect(40, 10, 20, 20));

    window.show();
    shake(view, {5, 4, 0}, core::Seconds(5));
    shake(view, {5, 4, 0}, core::Seconds(0.05)); // takes the place of the first
    ASSERT_NE(view.graphicsEffect(), nullptr);
    EXPECT_TRUE(platform::testing::runUntil([&] { return view.graphicsEffect() == nullptr; }));
    EXPECT_EQ(span(), std::pair(40, 59));
}

TEST(RoundedPath, RoundsEachCornerByItsOwnRadius) {
    const QRectF rect(10, 20, 40, 30);
    const auto inside = [&](const CornerRadii& radii) {
        const QPainterPath path = roundedPath(rect, radii);
        EXPECT_EQ(path.boundingRect(), rect);
        std::string corners; // 1.5 points from each corner, from the top left round
        for (const QPointF point :
             {QPointF(11.5, 21.5), {48.5, 21.5}, {48.5, 48.5}, {11.5, 48.5}}) {
            corners += path.contains(point) ? 'x' : '.';
        }
        return corners;
    };
    EXPECT_EQ(inside({}), "xxxx");
    EXPECT_EQ(inside({10, 0, 0, 0}), ".xxx");
    EXPECT_EQ(inside({0, 10, 0, 0}), "x.xx");
    EXPECT_EQ(inside({0, 0, 10, 0}), "xx.x");
    EXPECT_EQ(inside({0, 0, -1, 10}), "xxx.");
    EXPECT_EQ(inside({500, 500, 500, 500}), "....") << "and still within the rectangle";
}

TEST(Backport, DoesWhatTheToolkitCan) {
    QListView list;
    int escapes = 0;
    backport(list)
        .onEscapePressed([&] { ++escapes; })
        .setWidthPreTahoe(123)
        .alternatingRowBackgrounds()
        .removeScrollViewEdgeEffect()
        .popoverBackground(Qt::blue);
    QTest::keyClick(&list, Qt::Key_A);
    QTest::keyClick(&list, Qt::Key_Escape);
    EXPECT_EQ(escapes, 1);
    EXPECT_EQ(list.width(), 123);
    EXPECT_TRUE(list.alternatingRowColors());
    EXPECT_EQ(list.palette().color(QPalette::Window), Qt::blue);
}

TEST(ViewGeometry, KnowsADevicePixelOnlyInAWindow) {
    QWidget window;
    QWidget view(&window);
    EXPECT_EQ(singlePixelLineWidth(view), 1);
    window.show();
    EXPECT_EQ(singlePixelLineWidth(view), 1 / window.windowHandle()->devicePixelRatio());
}

} // namespace
} // namespace driftwood
