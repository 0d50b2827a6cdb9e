#pragma once

#include "artwork/mask.hpp"
#include "core/geometry.hpp"

#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace artwork {

/// The image being drawn, in points; knows its scale, so that edges can meet whole pixels.
class Canvas {
  public:
    Canvas(core::Size size, int scale);

    [[nodiscard]] core::Size size() const { return size_; }
    [[nodiscard]] int scale() const { return scale_; }
    /// One pixel, in points.
    [[nodiscard]] double pixel() const { return 1.0 / scale_; }
    /// The nearest pixel edge.
    [[nodiscard]] double snapped(double points) const;
    /// A line width of whole pixels, at least one.
    [[nodiscard]] double lineWidth(double points) const;

    /// In points, with antialiasing.
    [[nodiscard]] QPainter& painter() { return painter_; }
    void fill(const QPainterPath& path, const QBrush& brush);
    void stroke(const QPainterPath& path, const QColor& color, double width);

    /// How much of each pixel the path covers.
    [[nodiscard]] Mask mask(const QPainterPath& path) const;
    /// `mask` blurred by a soft edge that wide, in points.
    [[nodiscard]] Mask softened(const Mask& mask, double radius) const;
    /// Lays a colour over the image as far as the mask covers it.
    void paint(const Mask& mask, const QColor& color);

    /// The pixels so far, premultiplied; for light that is added to what is there.
    [[nodiscard]] QImage& pixels() { return image_; }
    /// Ends the drawing.
    [[nodiscard]] QImage finish();

  private:
    core::Size size_;
    int scale_;
    QImage image_;
    QPainter painter_;
};

} // namespace artwork
