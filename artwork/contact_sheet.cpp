#include "artwork/contact_sheet.hpp"

#include "artwork/bundle_writer.hpp"
#include "artwork/mask.hpp"
#include "artwork/palette.hpp"
#include "artwork/typeface.hpp"

#include <QPainter>
#include <algorithm>

namespace artwork {

namespace {

constexpr int margin = 24;
constexpr int sheetWidth = 1560;

/// Draws an image three times as wide, its caps as they are.
QImage widened(const QImage& image, const Drawing& drawing, int scale) {
    const int left = static_cast<int>(drawing.capInsets.left * scale);
    const int right = static_cast<int>(drawing.capInsets.right * scale);
    const int width = 110 * scale;
    QImage wide(width, image.height(), QImage::Format_ARGB32_Premultiplied);
    wide.fill(Qt::transparent);
    QPainter painter(&wide);
    painter.drawImage(0, 0, image, 0, 0, left, -1);
    painter.drawImage(QRect(left, 0, width - left - right, image.height()), image,
                      QRect(left, 0, image.width() - left - right, image.height()));
    painter.drawImage(width - right, 0, image, image.width() - right, 0, right, -1);
    return wide;
}

void label(QPainter& painter, const QString& text, const QString& fonts, QPointF center,
           double size, const QColor& color) {
    const auto outline = outlineOf(text, fonts + "/FennickRounded-Bold.ttf", size);
    const QPointF origin(center.x() - outline.width / 2, center.y() + size * 0.35);
    painter.fillPath(outline.path.translated(origin), color);
}

/// The colour of a label by the state in which the image is shown.
QColor inkFor(const QString& name) {
    const bool pressed = name.endsWith("-down");
    if (name.startsWith("chaos-")) {
        return color(name.contains("button-yellow") ? "ChaosYellowText"
                     : pressed                      ? "chaosToggleTextPressed"
                                                    : "chaosToggleText");
    }
    const bool on = name.endsWith("-selected") && !name.startsWith("dwk-window-tab");
    return color(pressed || on ? "Grey 50%" : "Grey 85%");
}

QImage area(const QImage& image, int scale) {
    QImage result(80 * scale, 24 * scale, QImage::Format_ARGB32_Premultiplied);
    QPainter(&result).fillRect(result.rect(), QBrush(image));
    return result;
}

std::vector<QImage> versions(const Drawing& drawing, const QString& fonts,
                             const std::vector<int>& scales) {
    std::vector<QImage> images;
    for (const int scale : drawing.scales) {
        if (std::ranges::find(scales, scale) == scales.end()) {
            continue;
        }
        auto image = bake(drawing, scale);
        if (drawing.isTemplate) {
            image = Mask::ofAlpha(image).tinted(color("Grey 85%"));
        }
        images.push_back(image);
        if (drawing.resizing == Resizing::tile) {
            images.push_back(area(image, scale));
        } else if (drawing.resizing == Resizing::stretch) {
            auto wide = widened(image, drawing, scale);
            if (drawing.size.height >= 20) {
                QPainter painter(&wide);
                painter.setRenderHint(QPainter::Antialiasing);
                label(painter, "Label", fonts,
                      {wide.width() / 2.0, wide.height() / 2.0 - scale * 0.5}, 12.5 * scale,
                      inkFor(drawing.name));
            }
            images.push_back(wide);
        }
    }
    return images;
}

} // namespace

QImage contactSheet(const std::vector<Drawing>& drawings, const QString& fonts,
                    const SheetOptions& options) {
    QImage sheet(sheetWidth, 8000, QImage::Format_RGB32);
    sheet.fill(color(options.ground.toStdString()));
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto font = fonts + "/FennickRounded-Medium.ttf";

    int x = margin;
    int y = margin;
    int rowHeight = 0;
    for (const auto& drawing : drawings) {
        const auto name = outlineOf(drawing.name, font, 11);
        int width = 0;
        int height = 0;
        const auto images = versions(drawing, fonts, options.scales);
        for (const auto& image : images) {
            width += image.width() + margin / 2;
            height = std::max(height, image.height());
        }
        width = std::max(width, static_cast<int>(name.width) + margin / 2);
        height += 24;
        if (x > margin && x + width > sheetWidth - margin) {
            x = margin;
            y += rowHeight + margin;
            rowHeight = 0;
        }
        painter.fillPath(name.path.translated(x, y + 11), color("Grey 50%"));
        int left = x;
        for (const auto& image : images) {
            painter.drawImage(left, y + 24, image);
            left += image.width() + margin / 2;
        }
        x += width + margin;
        rowHeight = std::max(rowHeight, height);
    }
    painter.end();
    return sheet.copy(0, 0, sheetWidth, y + rowHeight + margin);
}

} // namespace artwork
