#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace fernhorn {

/// What a host keeps of a plug-in between two sessions. A plain value; any thread.
struct ParameterState {
    /// The plug-in's own count of the meaning of its states, from 1.
    int version = 1;
    /// Parameters by identifier. Finite numbers.
    std::map<std::string, float> values = {};
    /// What else the plug-in keeps, by names of its choice. UTF-8.
    std::map<std::string, std::string> texts = {};

    /// As JSON, the same for equal states. Numbers come back exactly.
    [[nodiscard]] std::string text() const;
    /// The inverse. Members it does not know are passed over; nothing when any of those it does
    /// know is missing or nonsense, or when the text is no JSON.
    [[nodiscard]] static std::optional<ParameterState> fromText(std::string_view text);

    friend bool operator==(const ParameterState&, const ParameterState&) = default;
};

} // namespace fernhorn
