// The library that hosts load for the sound. It knows nothing of windows.

#include "fernhorn/model/parameter_state.hpp"
#include "plugin/dsp/vocoder.hpp"
#include "plugin/lv2/ports.hpp"
#include "plugin/lv2/window_state.hpp"

#include <lv2/atom/atom.h>
#include <lv2/core/lv2.h>
#include <lv2/state/state.h>
#include <lv2/urid/urid.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <string>

namespace larkvox {

namespace {

constexpr const char* stateKey = "https://www.fennick.example/plugins/larkvox#state";

/// One plug-in in a host.
class Instance {
  public:
    Instance(double sampleRate, const LV2_URID_Map* map) : vocoder_(sampleRate), map_(map) {
        page_ = vocoderParameters()[indexOf(VocoderParameter::page)].defaultValue;
    }

    void connect(std::uint32_t port, void* data) {
        if (port < firstControl) {
            audio_.at(port) = static_cast<float*>(data);
        } else if (isControlPort(port)) {
            controls_.at(port - firstControl) = static_cast<const float*>(data);
        }
    }

    void activate() { vocoder_.reset(); }

    void run(std::uint32_t samples) {
        for (std::uint32_t i = 0; i < controlPortCount; ++i) {
            if (controls_[i] != nullptr) {
                vocoder_.set(addressOfPort(firstControl + i), *controls_[i]);
            }
        }
        if (std::find(audio_.begin(), audio_.end(), nullptr) == audio_.end()) {
            vocoder_.process(audio_[modulator], audio_[carrier], audio_[left], audio_[right],
                             samples);
        } else {
            runPartly(samples);
        }
    }

    // What belongs to the window. Any thread but the audio thread.
    float windowValue(std::uint32_t address) const {
        return address == indexOf(VocoderParameter::page) ? page_.load(std::memory_order_relaxed)
                                                          : 0;
    }
    void setWindowValue(std::uint32_t address, float value) {
        const auto range = vocoderParameters()[indexOf(VocoderParameter::page)].range;
        if (address == indexOf(VocoderParameter::page) && value >= range.lower &&
            value <= range.upper) {
            page_.store(value, std::memory_order_relaxed);
        }
    }

    LV2_State_Status save(LV2_State_Store_Function store, LV2_State_Handle handle) const {
        if (map_ == nullptr) {
            return LV2_STATE_ERR_NO_FEATURE;
        }
        const std::string text = [this] {
            const std::scoped_lock lock(mutex_);
            fernhorn::ParameterState state = kept_;
            state.values["page"] = page_.load(std::memory_order_relaxed);
            return state.text();
        }();
        return store(handle, urid(stateKey), text.c_str(), text.size() + 1, urid(LV2_ATOM__String),
                     LV2_STATE_IS_POD | LV2_STATE_IS_PORTABLE);
    }

    /// What is no state of ours leaves everything as it is; what is missing takes its default.
    LV2_State_Status restore(LV2_State_Retrieve_Function retrieve, LV2_State_Handle handle) {
        if (map_ == nullptr) {
            return LV2_STATE_ERR_NO_FEATURE;
        }
        std::size_t size = 0;
        std::uint32_t type = 0;
        std::uint32_t flags = 0;
        const void* const data = retrieve(handle, urid(stateKey), &size, &type, &flags);
        if (data == nullptr) {
            return LV2_STATE_ERR_NO_PROPERTY;
        }
        if (type != urid(LV2_ATOM__String)) {
            return LV2_STATE_ERR_BAD_TYPE;
        }
        const auto* const text = static_cast<const char*>(data);
        auto state = fernhorn::ParameterState::fromText({text, strnlen(text, size)});
        if (!state) {
            return LV2_STATE_ERR_UNKNOWN;
        }
        const auto page = state->values.find("page");
        page_ = vocoderParameters()[indexOf(VocoderParameter::page)].defaultValue;
        if (page != state->values.end()) {
            setWindowValue(indexOf(VocoderParameter::page), page->second);
        }
        const std::scoped_lock lock(mutex_);
        kept_ = std::move(*state);
        return LV2_STATE_SUCCESS;
    }

  private:
    LV2_URID urid(const char* uri) const { return map_->map(map_->handle, uri); }

    /// A host may leave out the carrier, and one that is not careful any other port.
    void runPartly(std::uint32_t samples) {
        constexpr std::uint32_t part = 64;
        std::array<float, part> silence{};
        std::array<float, part> leftOut{};
        std::array<float, part> rightOut{};
        for (std::uint32_t at = 0; at < samples; at += part) {
            const std::uint32_t count = std::min(part, samples - at);
            const auto from = [&](AudioPort port, float* otherwise) {
                return audio_[port] != nullptr ? audio_[port] + at : otherwise;
            };
            vocoder_.process(from(modulator, silence.data()), from(carrier, nullptr),
                             from(left, leftOut.data()), from(right, rightOut.data()), count);
        }
    }

    Vocoder vocoder_;
    const LV2_URID_Map* map_; ///< null where the host has none
    std::array<float*, firstControl> audio_{};
    std::array<const float*, controlPortCount> controls_{};
    std::atomic<float> page_{0};
    mutable std::mutex mutex_;
    fernhorn::ParameterState kept_; ///< of a later version
};

Instance& instanceOf(LV2_Handle handle) {
    return *static_cast<Instance*>(handle);
}

LV2_Handle instantiate(const LV2_Descriptor* /*descriptor*/, double sampleRate,
                       const char* /*bundle*/, const LV2_Feature* const* features) {
    const LV2_URID_Map* map = nullptr;
    for (; features != nullptr && *features != nullptr; ++features) {
        if (std::strcmp((*features)->URI, LV2_URID__map) == 0) {
            map = static_cast<const LV2_URID_Map*>((*features)->data);
        }
    }
    return new (std::nothrow) Instance(sampleRate, map);
}

const LV2_State_Interface state{
    [](LV2_Handle handle, LV2_State_Store_Function store, LV2_State_Handle host,
       std::uint32_t /*flags*/,
       const LV2_Feature* const* /*features*/) { return instanceOf(handle).save(store, host); },
    [](LV2_Handle handle, LV2_State_Retrieve_Function retrieve, LV2_State_Handle host,
       std::uint32_t /*flags*/, const LV2_Feature* const* /*features*/) {
        return instanceOf(handle).restore(retrieve, host);
    }};

const WindowState windowState{
    [](void* plugin, std::uint32_t address) { return instanceOf(plugin).windowValue(address); },
    [](void* plugin, std::uint32_t address, float value) {
        instanceOf(plugin).setWindowValue(address, value);
    }};

const LV2_Descriptor descriptor{
    pluginUri,
    &instantiate,
    [](LV2_Handle handle, std::uint32_t port, void* data) {
        instanceOf(handle).connect(port, data);
    },
    [](LV2_Handle handle) { instanceOf(handle).activate(); },
    [](LV2_Handle handle, std::uint32_t samples) { instanceOf(handle).run(samples); },
    nullptr,
    [](LV2_Handle handle) { delete &instanceOf(handle); },
    [](const char* uri) -> const void* {
        if (std::strcmp(uri, LV2_STATE__interface) == 0) {
            return &state;
        }
        return std::strcmp(uri, WindowState::uri) == 0 ? &windowState : nullptr;
    }};

} // namespace

} // namespace larkvox

extern "C" LV2_SYMBOL_EXPORT const LV2_Descriptor* lv2_descriptor(std::uint32_t index) {
    return index == 0 ? &larkvox::descriptor : nullptr;
}
