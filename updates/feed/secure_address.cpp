#include "updates/feed/secure_address.hpp"

#include <algorithm>

namespace updates {

bool isSecureAddress(std::string_view address) {
    constexpr std::string_view scheme = "https://";
    const auto isSame = [](char written, char expected) {
        return written == expected ||
               (written >= 'A' && written <= 'Z' && written + 32 == expected);
    };
    const auto isPlain = [](char c) { return c > ' ' && c < '\x7f' && c != '\\'; };
    if (address.size() <= scheme.size() ||
        !std::ranges::equal(address.substr(0, scheme.size()), scheme, isSame) ||
        !std::ranges::all_of(address, isPlain)) {
        return false;
    }
    address.remove_prefix(scheme.size());
    const std::string_view authority = address.substr(0, address.find_first_of("/?#"));
    return !authority.empty() && !authority.starts_with(':') &&
           authority.find('@') == std::string_view::npos;
}

} // namespace updates
