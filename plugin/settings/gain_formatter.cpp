#include "gallery/fernhorn/vocoder/gain_formatter.hpp"

#include "core/decimal_text.hpp"

#include <cmath>

namespace gallery {

std::string GainFormatter::format(float value) const {
    const double whole = std::round(static_cast<double>(value)) + 0.0; // never "-0"
    return (whole > 0 ? "+" : "") + core::fixedText(whole, 0);
}

std::optional<float> GainFormatter::parse(std::string_view text) const {
    return core::parseDecimal(text);
}

} // namespace gallery
