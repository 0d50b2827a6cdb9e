#pragma once

#include <QColor>
#include <QImage>
#include <vector>

namespace artwork {

/// A coverage of 0…1 for every pixel of an image; its arithmetic gives shadows and rims, and the
/// same bytes on every run.
class Mask {
  public:
    Mask(int width, int height, float value);
    [[nodiscard]] static Mask ofAlpha(const QImage& image);

    [[nodiscard]] int width() const { return width_; }
    [[nodiscard]] int height() const { return height_; }
    [[nodiscard]] float at(int x, int y) const { return values_[index(x, y)]; }
    [[nodiscard]] float& at(int x, int y) { return values_[index(x, y)]; }

    [[nodiscard]] Mask inverted() const;
    /// What both masks cover.
    [[nodiscard]] Mask operator*(const Mask& other) const;
    /// Gaussian; the deviation is in pixels. Beyond its edges the image goes on as at the edge.
    [[nodiscard]] Mask blurred(double deviation) const;
    /// An image of one colour, premultiplied.
    [[nodiscard]] QImage tinted(const QColor& color) const;

  private:
    [[nodiscard]] std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
               static_cast<std::size_t>(x);
    }

    int width_;
    int height_;
    std::vector<float> values_;
};

/// Blurs a plane of values in place, as Mask::blurred does.
void blurPlane(std::vector<float>& plane, int width, int height, double deviation);

} // namespace artwork
