#pragma once

#include "plugin/lv2/ports.hpp"

namespace larkvox {

/// Where the window meets the plug-in in one process: what belongs to the window alone is kept with
/// the plug-in's state, and outlives the window. Given by the plug-in's extension data.
struct WindowState {
    static constexpr const char* uri = "https://www.fennick.example/plugins/larkvox#windowState";

    /// By address; the default for a parameter that is not the window's. Any thread.
    float (*get)(void* plugin, std::uint32_t address);
    /// Does nothing for a parameter that is not the window's. Any thread.
    void (*set)(void* plugin, std::uint32_t address, float value);
};

} // namespace larkvox
