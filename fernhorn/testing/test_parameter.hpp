#pragma once

#include "fernhorn/model/audio_parameter.hpp"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace fernhorn {

/// What tests make parameters of; the host's clock always says 77.
struct TestParameter {
    platform::AUParameterAddress address = 1;
    platform::AudioUnitParameterUnit units = platform::AudioUnitParameterUnit::generic;
    ValueRange range{0, 1};
    float defaultValue = 0;
    std::optional<std::vector<std::string>> valueStrings = {};
    std::optional<std::vector<platform::AUParameterAddress>> dependents = {};

    [[nodiscard]] std::shared_ptr<AudioParameter> on(core::MainQueue& queue) const {
        return std::make_shared<AudioParameter>(
            address, "parameter", "Parameter", units, range, defaultValue, ValueIncrement::linear(),
            valueStrings, dependents, queue, [] { return std::uint64_t{77}; });
    }
};

/// Event types and values, as an automation observer has seen them.
using AutomationEvents = std::vector<std::pair<int, float>>;

inline void recordEvents(const AudioParameter& parameter, AutomationEvents& events) {
    parameter.auParameter()->addParameterAutomationObserver([&events](const auto& event) {
        events.emplace_back(static_cast<int>(event.eventType), event.value);
    });
}

inline constexpr auto fromUi = ParameterEditor::ui;
inline constexpr auto fromUnit = ParameterEditor::parameterObserver;
inline constexpr auto change = ParameterEditorState::change;
inline constexpr auto begin = ParameterEditorState::beginInteractive;
inline constexpr auto end = ParameterEditorState::endInteractive;

} // namespace fernhorn
