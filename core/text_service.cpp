#include "core/text_service.hpp"

#include "core/decimal_text.hpp"

#include <atomic>

namespace core {
namespace {

std::atomic<const TextService*> installed{nullptr};

} // namespace

std::string TextService::lowercase(std::string_view text) const {
    std::string result(text);
    for (char& character : result) {
        if (character >= 'A' && character <= 'Z') {
            character = static_cast<char>(character - 'A' + 'a');
        }
    }
    return result;
}

std::string TextService::localizedWholeNumber(double value) const {
    return fixedText(value, 0);
}

bool TextService::isAlphanumeric(char32_t character) const {
    return (character >= U'A' && character <= U'Z') || (character >= U'a' && character <= U'z') ||
           (character >= U'0' && character <= U'9');
}

std::optional<TextRange> TextService::localizedStandardFind(std::string_view text,
                                                            std::string_view wanted) const {
    const std::size_t found =
        TextService::lowercase(text).find(TextService::lowercase(wanted)); // byte by byte
    return wanted.empty() || found == std::string::npos
               ? std::nullopt
               : std::optional(TextRange{found, found + wanted.size()});
}

std::string TextService::translate(const char* /*context*/, const char* text) const {
    return text;
}

const TextService& TextService::current() {
    static const TextService fallback;
    const TextService* const service = installed.load(std::memory_order_acquire);
    return service != nullptr ? *service : fallback;
}

void TextService::install(const TextService* service) {
    installed.store(service, std::memory_order_release);
}

} // namespace core
