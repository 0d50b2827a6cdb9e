#include "platform/controls/button_cell.hpp"

#include "platform/assets/asset_catalog.hpp"
#include "platform/assets/system_font.hpp"

#include <QPainter>

#include <utility>

namespace platform {
namespace {

constexpr double framedMargin = 8; // from a bezel's edge to what stands on it

} // namespace

ButtonCell::ButtonCell(QString title) : title_(std::move(title)) {
    setCellState({.showsState = false});
    setBordered(true);
}

StateValue ButtonCell::nextState() const {
    switch (cellState().state) {
    case StateValue::on:
        return StateValue::off;
    case StateValue::off:
        return allowsMixedState_ ? StateValue::mixed : StateValue::on;
    case StateValue::mixed:
        break;
    }
    return StateValue::on;
}

ButtonParts ButtonCell::parts(bool isRightToLeft) const {
    ButtonParts parts;
    parts.position = imagePosition_;
    parts.isRightToLeft = isRightToLeft;
    parts.margin = hasFrame() ? framedMargin : 0;
    if (image_ != nullptr) {
        parts.image = {image_->size().width(), image_->size().height()};
    }
    if (!title_.isEmpty()) {
        parts.title = titleSize();
    }
    return parts;
}

core::Rect ButtonCell::imageRect(const core::Rect& bounds, bool isRightToLeft) const {
    return defaultImageRect(bounds, parts(isRightToLeft));
}

core::Rect ButtonCell::titleRect(const core::Rect& bounds, bool isRightToLeft) const {
    return defaultTitleRect(bounds, parts(isRightToLeft));
}

QFont ButtonCell::titleFont() const {
    static const QFont font = systemFont(13, QFont::Normal);
    return font;
}

core::Size ButtonCell::cellSize() const {
    return naturalSize(parts(false));
}

void ButtonCell::drawInterior(const core::Rect& frame, const CellCanvas& canvas) const {
    const core::Rect inner = drawingRect(frame);
    if (image_ != nullptr && imagePosition_ != ImagePosition::noImage) {
        CellCanvas forImage = canvas;
        forImage.mirrorsImages = canvas.isRightToLeft && imageFollowsReading_;
        drawImage(*image_, imageRect(inner, canvas.isRightToLeft), forImage);
    }
    if (!title_.isEmpty() && imagePosition_ != ImagePosition::imageOnly) {
        drawTitle(title_, titleRect(inner, canvas.isRightToLeft), canvas);
    }
}

void ButtonCell::drawImage(const ImageAsset& image, const core::Rect& frame,
                           const CellCanvas& canvas) const {
    const QSizeF size = image.size();
    const bool isEverywhere = imageScaling_ == ImageScaling::axesIndependently;
    paintCellImage(canvas, scaledImageRect(frame, {size.width(), size.height()}, imageScaling_),
                   image, cellState().isEnabled ? 1.0 : 0.5,
                   isEverywhere ? CellImageResizing::stretch : CellImageResizing::asTheImageSays);
}

void ButtonCell::drawTitle(const QString& title, const core::Rect& frame,
                           const CellCanvas& canvas) const {
    QColor color = canvas.controlTextColor;
    if (!cellState().isEnabled) {
        color.setAlphaF(color.alphaF() * 0.5F);
    }
    paintTitle(title, frame, canvas, color);
}

void ButtonCell::paintTitle(const QString& title, const core::Rect& frame, const CellCanvas& canvas,
                            const QColor& color) const {
    titleText_.paint(canvas.painter, frame, title, titleFont(), color);
}

} // namespace platform
