#pragma once

#include "artwork/mask.hpp"

#include <QImage>
#include <array>
#include <vector>

namespace artwork {

/// Linear light, which may go beyond 1, for every pixel of an image: glowing things add up here
/// as light does, and are laid over the picture at the end.
class LightField {
  public:
    using Light = std::array<float, 3>; ///< red, green, blue; linear

    LightField(int width, int height);

    /// `color` in linear light, `strength` times as bright.
    [[nodiscard]] static Light light(const QColor& color, double strength);

    void add(int x, int y, const Light& light, float amount);
    /// Adds `amount` of the light, spread by `deviation` pixels.
    void bloom(double deviation, float amount);
    /// Adds the light to the image where the mask lets it through; very bright light turns white.
    void shineOn(QImage& image, const Mask& mask) const;

  private:
    int width_;
    int height_;
    std::array<std::vector<float>, 3> planes_;
};

} // namespace artwork
