#include "driftwood/style/styled_control_state.hpp"

#include <array>
#include <string_view>

namespace driftwood {

std::string StyledControlState::description() const {
    constexpr std::array<std::string_view, 8> names{
        "default", "disabled", "selected", "highlighted", "focused", "on", "mixed", "invalid"};
    std::string text;
    for (std::size_t bit = 0; bit < names.size(); ++bit) {
        if (contains(StyledControlState(1 << bit))) {
            text += text.empty() ? "" : ", ";
            text += names[bit];
        }
    }
    return text;
}

} // namespace driftwood
