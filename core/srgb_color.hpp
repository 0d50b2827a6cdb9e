#pragma once

namespace core {

/// A colour in sRGB with straight alpha. Components are 0…1; wider colour spaces go beyond. A
/// value: any thread.
struct SRGBColor {
    float red = 0;
    float green = 0;
    float blue = 0;
    float alpha = 1;
    friend bool operator==(const SRGBColor&, const SRGBColor&) = default;
};

} // namespace core
