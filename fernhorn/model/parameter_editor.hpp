#pragma once

#include "platform/audio/au_types.hpp"

#include <cstdint>

// Plain values, for any thread.
namespace fernhorn {

/// Where an edit came from.
enum class ParameterEditor : std::uint8_t {
    /// The audio unit's side: a host, automation, a preset, or the echo of the interface's write.
    parameterObserver = 0,
    /// A control of the interface.
    ui = 1,
};

/// What an edit is within a gesture. The raw values are those of the event type that is sent.
enum class ParameterEditorState : std::uint8_t {
    change = 0,
    beginInteractive = 1,
    endInteractive = 2,
};

[[nodiscard]] constexpr platform::AUParameterAutomationEventType
automationEventType(ParameterEditorState state) {
    return static_cast<platform::AUParameterAutomationEventType>(state);
}

} // namespace fernhorn
