#include "platform/assets/asset_catalog.hpp"
#include "platform/assets/image_painter.hpp"

#include <QPainter>
#include <QTemporaryDir>

#include <cmath>
#include <gmock/gmock.h>

namespace platform {
namespace {

constexpr QRgb ground = 0xffff00ff;

/// Assets of one test, written as the bundles have them.
class ImageAssets : public testing::Test {
  protected:
    /// An asset with these variants, by scale; their pixels decide its size in points.
    ImageAsset asset(const std::map<int, QImage>& variants, core::EdgeInsets caps = {},
                     ImageResizing resizing = ImageResizing::stretch, bool isTemplate = false) {
        ImageEntry entry;
        entry.capInsets = caps;
        entry.resizing = resizing;
        entry.isTemplate = isTemplate;
        for (const auto& [scale, image] : variants) {
            const QString name = QStringLiteral("%1@%2x.png").arg(count_++).arg(scale);
            EXPECT_TRUE(image.save(folder_.filePath(name)));
            entry.variants[scale] = name.toStdString();
            entry.size = {double(image.width()) / scale, double(image.height()) / scale};
        }
        return {folder_.path(), entry};
    }

  private:
    QTemporaryDir folder_;
    int count_ = 0;
};

QImage filled(int width, int height, QRgb color) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

/// Every pixel differs from every other.
QImage numbered(int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, qRgb(10 + 2 * x, 10 + 2 * y, 200));
        }
    }
    return image;
}

/// What is painted into `rect` (points) of a canvas of 96 × 64 points.
QImage painted(const ImageAsset& asset, QRectF rect, qreal scale, const QColor& tint = Qt::black) {
    QImage canvas((QSizeF(96, 64) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    canvas.fill(ground);
    canvas.setDevicePixelRatio(scale);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(3, 2);
    const QTransform before = painter.transform();
    paintImage(painter, rect, asset, tint);
    EXPECT_EQ(painter.transform(), before);
    EXPECT_TRUE(painter.testRenderHint(QPainter::Antialiasing));
    painter.end();
    canvas.setDevicePixelRatio(1);
    return canvas;
}

/// The device pixels of a rectangle given to `painted`.
QRect pixelsOf(QRectF rect, qreal scale) {
    rect.translate(3, 2);
    return {QPoint(qRound(rect.left() * scale), qRound(rect.top() * scale)),
            QPoint(qRound(rect.right() * scale) - 1, qRound(rect.bottom() * scale) - 1)};
}

TEST_F(ImageAssets, TakesTheVariantOfTheScaleOrReducesTheNextLargerOne) {
    const QRgb red = 0xffff0000, green = 0xff00ff00, blue = 0xff0000ff;
    const ImageAsset image =
        asset({{1, filled(4, 6, red)}, {2, filled(8, 12, green)}, {3, filled(12, 18, blue)}});
    const struct {
        qreal scale;
        QRgb color;
        QSize size;
    } cases[] = {{1, red, {4, 6}},    {1.25, green, {5, 8}}, {1.5, green, {6, 9}},
                 {2, green, {8, 12}}, {2.5, blue, {10, 15}}, {3, blue, {12, 18}},
                 {4, blue, {16, 24}}, {0.5, red, {2, 3}},    {1.75, green, {7, 11}}};
    for (const auto& expected : cases) {
        const QImage& pixels = image.image(expected.scale);
        EXPECT_EQ(pixels.size(), expected.size) << expected.scale;
        EXPECT_EQ(pixels.pixel(1, 1), expected.color) << expected.scale;
        EXPECT_EQ(pixels.devicePixelRatio(), 1) << expected.scale;
    }
    // A fine chequerboard reduced by area is even grey; picking pixels would keep black or white.
    QImage board(16, 16, QImage::Format_ARGB32);
    for (int i = 0; i < 256; ++i) {
        board.setPixel(i % 16, i / 16, (i % 16 + i / 16) % 2 == 0 ? 0xffffffff : 0xff000000);
    }
    const ImageAsset grey = asset({{2, board}});
    for (int i = 0; i < 64; ++i) {
        EXPECT_NEAR(qRed(grey.image(1).pixel(i % 8, i / 8)), 127, 2);
    }
}

TEST_F(ImageAssets, KeepTheirCornersAndLeaveNoSeamsAtAnyScale) {
    const struct {
        QSize size;
        core::EdgeInsets caps; // top, left, bottom, right
    } shapes[] = {{{20, 24}, {8, 8, 8, 8}},
                  {{11, 12}, {2, 3, 5, 4}},
                  {{5, 5}, {2, 2, 2, 2}},
                  {{4, 6}, {3, 2, 3, 2}},
                  {{6, 7}, {0, 0, 0, 0}}};
    for (const auto& [size, caps] : shapes) {
        const ImageAsset image = asset({{1, numbered(size.width(), size.height())},
                                        {2, numbered(2 * size.width(), 2 * size.height())},
                                        {3, numbered(3 * size.width(), 3 * size.height())}},
                                       caps);
        for (const qreal scale : {1.0, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0}) {
            const QImage& asIs = image.image(scale);
            const QSize natural = asIs.size();
            for (const QRectF rect : {QRectF(0, 0, size.width(), size.height()),
                                      QRectF(1.3, 0.7, 41.4, 33.9), QRectF(0.5, 0.5, 80, 24)}) {
                const QImage canvas = painted(image, rect, scale);
                const QRect place = pixelsOf(rect, scale);
                const auto where = testing::Message()
                                   << size.width() << " at " << scale << " in " << rect.width();
                int bare = 0;
                int spilt = 0;
                int blended = 0;
                for (int y = 0; y < canvas.height(); ++y) {
                    for (int x = 0; x < canvas.width(); ++x) {
                        const QRgb pixel = canvas.pixel(x, y);
                        const bool isInside = place.contains(x, y);
                        bare += isInside && pixel == ground;
                        spilt += !isInside && pixel != ground;
                        blended += isInside && qBlue(pixel) != 200;
                    }
                }
                EXPECT_EQ(bare, 0) << where;
                EXPECT_EQ(spilt, 0) << where;
                EXPECT_EQ(blended, 0) << where;

                const QSize topLeft(qRound(caps.left * scale), qRound(caps.top * scale));
                const QSize bottomRight(qRound(caps.right * scale), qRound(caps.bottom * scale));
                if (topLeft.width() + bottomRight.width() > place.width() ||
                    topLeft.height() + bottomRight.height() > place.height()) {
                    continue;
                }
                const auto corner = [&](const QImage& from, QRect in, bool isRight, bool isBottom) {
                    const QSize part(isRight ? bottomRight.width() : topLeft.width(),
                                     isBottom ? bottomRight.height() : topLeft.height());
                    QRect at(in.topLeft(), part);
                    isRight ? at.moveRight(in.right()) : at.moveLeft(in.left());
                    isBottom ? at.moveBottom(in.bottom()) : at.moveTop(in.top());
                    return at.isEmpty() ? QImage() : from.copy(at);
                };
                for (const int i : {0, 1, 2, 3}) {
                    EXPECT_EQ(corner(canvas, place, i % 2, i / 2),
                              corner(asIs, QRect(QPoint(), natural), i % 2, i / 2))
                        << where << " corner " << i;
                }
            }
        }
    }
}

TEST_F(ImageAssets, CutTheirCapsInATargetThatIsTooSmall) {
    const ImageAsset image = asset({{1, numbered(20, 24)}}, {8, 8, 8, 8});
    const QImage canvas = painted(image, {0, 0, 7, 3}, 1);
    const QImage& source = image.image(1);
    EXPECT_EQ(canvas.pixel(3, 2), source.pixel(0, 0));
    EXPECT_EQ(canvas.pixel(3 + 6, 2 + 2), source.pixel(19, 23));
    EXPECT_EQ(canvas.pixel(3 + 7, 2), ground);
    EXPECT_EQ(canvas.pixel(3, 2 + 3), ground);
}

TEST_F(ImageAssets, FillTheMiddleAsTheySay) {
    const core::EdgeInsets caps{1, 2, 1, 2};
    const QImage source = numbered(8, 5);
    const QRectF rect(0, 0, 18, 5);
    const auto row = [&](ImageResizing resizing) {
        const QImage canvas = painted(asset({{1, source}}, caps, resizing), rect, 1);
        std::vector<int> columns;
        for (int x = 0; x < 18; ++x) {
            const QRgb pixel = canvas.pixel(3 + x, 2 + 2);
            columns.push_back(pixel == ground ? -1 : (qRed(pixel) - 10) / 2);
        }
        return columns;
    };
    using testing::ElementsAre;
    EXPECT_THAT(row(ImageResizing::tile),
                ElementsAre(0, 1, 2, 3, 4, 5, 2, 3, 4, 5, 2, 3, 4, 5, 2, 3, 6, 7));
    const auto stretched = row(ImageResizing::stretch);
    EXPECT_TRUE(std::ranges::is_sorted(stretched));
    EXPECT_EQ(stretched[9], 4);
    EXPECT_EQ(stretched[17], 7);
    EXPECT_THAT(row(ImageResizing::none), // in the centre, at its own size
                ElementsAre(-1, -1, -1, -1, -1, 0, 1, 2, 3, 4, 5, 6, 7, -1, -1, -1, -1, -1));
}

TEST_F(ImageAssets, TakeTheTintWithTheirOwnCoverageWhenTheyAreTemplates) {
    QImage shape = filled(3, 1, 0xff000000);
    shape.setPixel(1, 0, 0x80000000);
    shape.setPixel(2, 0, 0);
    const ImageAsset image = asset({{1, shape}}, {}, ImageResizing::none, true);
    const QImage canvas = painted(image, {0, 0, 3, 1}, 1, QColor(0, 200, 100));
    EXPECT_EQ(canvas.pixel(3, 2), qRgb(0, 200, 100));
    EXPECT_NEAR(qGreen(canvas.pixel(4, 2)), 100, 1);
    EXPECT_NEAR(qRed(canvas.pixel(4, 2)), 127, 1); // half of the ground
    EXPECT_EQ(canvas.pixel(5, 2), ground);
}

TEST_F(ImageAssets, PaintNothingWhenTheirFileIsMissing) {
    ImageEntry entry;
    entry.size = {4, 4};
    entry.resizing = ImageResizing::stretch;
    entry.variants = {{1, "absent.png"}};
    const QTemporaryDir empty;
    const ImageAsset image(empty.path(), entry);
    EXPECT_TRUE(image.image(2).isNull());
    for (const QRectF rect : {QRectF(0, 0, 20, 20), QRectF()}) {
        const QImage canvas = painted(image, rect, 2);
        EXPECT_EQ(canvas, [&] {
            QImage untouched(canvas.size(), canvas.format());
            untouched.fill(ground);
            return untouched;
        }());
    }
    const AssetCatalog catalog(empty.path());
    EXPECT_EQ(catalog.image("x"), nullptr);
    EXPECT_FALSE(catalog.color("x").isValid());
}

} // namespace
} // namespace platform
