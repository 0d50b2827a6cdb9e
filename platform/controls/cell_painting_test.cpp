#include "platform/controls/cell_painting.hpp"

#include "platform/assets/asset_catalog.hpp"

#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace platform {
namespace {

/// An image of 4 by 4 points: columns of red and blue in turn.
ImageAsset stripes(const QDir& folder, ImageResizing resizing, bool isTemplate = false) {
    QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
    for (int i = 0; i < 16; ++i) {
        image.setPixelColor(i % 4, i / 4, i % 2 == 0 ? Qt::red : Qt::blue);
    }
    image.save(folder.filePath(QStringLiteral("stripes.png")));
    ImageEntry entry;
    entry.size = {4, 4};
    entry.capInsets = {1, 1, 1, 1};
    entry.resizing = resizing;
    entry.isTemplate = isTemplate;
    entry.variants = {{1, "stripes.png"}};
    return {folder, entry};
}

QImage paint(const ImageAsset& image, CellImageResizing resizing, double opacity = 1) {
    QImage target(22, 6, QImage::Format_ARGB32_Premultiplied);
    target.fill(Qt::black);
    QPainter painter(&target);
    paintCellImage({painter, Qt::green}, {{1, 1}, {20, 4}}, image, opacity, resizing);
    EXPECT_EQ(painter.opacity(), 1);
    return target;
}

int changes(const QImage& image) {
    int count = 0;
    for (int x = 2; x < 21; ++x) {
        count += image.pixel(x, 3) != image.pixel(x - 1, 3);
    }
    return count;
}

TEST(CellPainting, ResizesAsTheImageSaysUnlessToldToStretch) {
    const QTemporaryDir folder;
    const ImageAsset tiled = stripes(folder.path(), ImageResizing::tile);
    EXPECT_EQ(changes(paint(tiled, CellImageResizing::asTheImageSays)), 19);
    EXPECT_EQ(changes(paint(tiled, CellImageResizing::stretch)), 3);
    EXPECT_EQ(changes(paint(tiled, CellImageResizing::asTheImageSays)), 19); // from what was kept
    const ImageAsset fixed = stripes(folder.path(), ImageResizing::none);
    EXPECT_EQ(paint(fixed, CellImageResizing::asTheImageSays).pixelColor(2, 3), Qt::black);
    EXPECT_NE(paint(fixed, CellImageResizing::stretch).pixelColor(2, 3), Qt::black);
}

TEST(CellPainting, FillsTemplatesAndKeepsToTheOpacity) {
    const QTemporaryDir folder;
    for (const auto resizing : {ImageResizing::none, ImageResizing::stretch}) {
        const ImageAsset glyph = stripes(folder.path(), resizing, true);
        for (const auto how : {CellImageResizing::asTheImageSays, CellImageResizing::stretch}) {
            EXPECT_EQ(paint(glyph, how).pixelColor(11, 3), Qt::green);
            EXPECT_NEAR(paint(glyph, how, 0.5).pixelColor(11, 3).green(), 128, 1);
        }
    }
}

} // namespace
} // namespace platform
