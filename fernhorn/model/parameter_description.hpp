#pragma once

#include "core/main_queue.hpp"
#include "fernhorn/model/value_mapping.hpp"
#include "platform/audio/au_types.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace fernhorn {

/// Whether hosts see a parameter.
enum class HostAccess : std::uint8_t {
    automatable,
    /// It stands in the list and in the state, but not in the audio unit's tree: for what only the
    /// interface needs, such as the page that is shown. The signal processing is not told of it.
    hidden,
};

/// A parameter, member by member: `{.address = 1, .identifier = "drive", .name = "Drive"}`. A
/// value.
struct ParameterDescription {
    platform::AUParameterAddress address = 0;
    /// For states and trees; never changes once a version of the plug-in is out.
    std::string identifier = {};
    std::string name = {};
    platform::AudioUnitParameterUnit units = platform::AudioUnitParameterUnit::generic;
    ValueRange range = {0, 1};
    float defaultValue = 0;
    ValueIncrement increment = ValueIncrement::linear();
    /// The names of the values 0, 1, 2 … of an indexed parameter.
    std::optional<std::vector<std::string>> valueStrings = {};
    std::optional<std::vector<platform::AUParameterAddress>> dependents = {};
    HostAccess hostAccess = HostAccess::automatable;
    /// What changes travel over; has to outlive the parameter. Null: the shared one.
    core::MainQueue* queue = nullptr;
    /// The clock that writes to the audio unit bear the time of. Null: the host's.
    std::uint64_t (*hostTime)() = nullptr;
};

} // namespace fernhorn
