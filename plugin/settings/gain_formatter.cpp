#include "plugin/settings/gain_formatter.hpp"

#include "core/decimal_text.hpp"

#include <cmath>

namespace larkvox {

std::string GainFormatter::format(float value) const {
    const double unit = std::pow(10, decimalPlaces_);
    const double shown =
        std::round(static_cast<double>(value * factor_) * unit) / unit + 0.0; // never "-0"
    return (shown > 0 ? "+" : "") + core::fixedText(shown, decimalPlaces_);
}

std::optional<float> GainFormatter::parse(std::string_view text) const {
    return core::parseDecimal(text);
}

} // namespace larkvox
