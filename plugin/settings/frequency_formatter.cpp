#include "plugin/settings/frequency_formatter.hpp"

#include "core/decimal_text.hpp"

namespace larkvox {

std::string FrequencyFormatter::format(float value) const {
    const bool isKilo = value >= 999.5F;
    const double number = isKilo ? static_cast<double>(value) / 1000 : static_cast<double>(value);
    const int places = number < 9.995 ? 2 : number < 99.95 ? 1 : 0;
    return core::fixedText(number, places) + (isKilo ? " kHz" : " Hz");
}

std::optional<float> FrequencyFormatter::parse(std::string_view text) const {
    const auto last = text.find_last_of("0123456789.");
    if (last == std::string_view::npos) {
        return std::nullopt;
    }
    const auto unit = text.substr(last + 1);
    const auto isBlank = [](std::string_view rest) {
        return rest.find_first_not_of(' ') == std::string_view::npos;
    };
    const auto start = unit.find_first_not_of(' ');
    const bool isKilo =
        start != std::string_view::npos && (unit[start] == 'k' || unit[start] == 'K');
    const auto hertz = isBlank(unit) ? unit : unit.substr(start + (isKilo ? 1 : 0));
    if (!isBlank(hertz) && hertz != "Hz" && hertz != "hz") {
        return std::nullopt;
    }
    const auto number = core::parseDecimal(text.substr(0, last + 1));
    return number && isKilo ? std::optional(*number * 1000) : number;
}

} // namespace larkvox
