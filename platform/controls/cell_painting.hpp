#pragma once

#include "core/geometry.hpp"

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QStaticText>

class QPainter;

namespace platform {

class ImageAsset;

/// What a cell is painted with. The painter is as the caller wants it back.
struct CellCanvas {
    QPainter& painter;
    QColor controlTextColor; ///< template images are filled with it
    bool isRightToLeft = false;
};

inline QRectF toQRectF(const core::Rect& rect) {
    return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}
inline core::Rect toRect(const QRectF& rect) {
    return {{rect.x(), rect.y()}, {rect.width(), rect.height()}};
}

/// Whether an image that another size is asked of does what it says of itself, or is stretched.
enum class CellImageResizing { asTheImageSays, stretch };

/// Paints an image of a cell, bezels and glyphs alike, at an opacity: the nine parts are put
/// together once for a size and scale and then kept. Edges fall on device pixels.
void paintCellImage(const CellCanvas& canvas, const core::Rect& rect, const ImageAsset& image,
                    double opacity, CellImageResizing resizing = CellImageResizing::asTheImageSays);

/// The focus ring of controls: a rounded rectangle of radius 3, a point inside of the bounds,
/// filled lightly and outlined 2 points wide.
void paintControlFocusRing(QPainter& painter, const core::Rect& bounds, const QColor& color);

/// One line of text, laid out once and painted often; a text that is too long is cut at its tail.
class TitleText {
  public:
    /// The size of the whole text in points.
    core::Size size(const QString& text, const QFont& font);
    /// Paints it in the middle of the rectangle.
    void paint(QPainter& painter, const core::Rect& rect, const QString& text, const QFont& font,
               const QColor& color);

  private:
    void layOut(const QString& text, const QFont& font);

    QString text_;
    QFont font_;
    core::Size size_;
    double paintedWidth_ = -1; // the room that `painted_` was made for
    double painterScale_ = 0;
    QStaticText painted_;
};

} // namespace platform
