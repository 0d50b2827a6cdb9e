#pragma once

// What a host of LV2 plug-ins is made of, for tests.

#include "plugin/lv2/ports.hpp"

#include <gtest/gtest.h>
#include <lilv/lilv.h>
#include <lv2/state/state.h>
#include <lv2/urid/urid.h>

#include <map>
#include <string>

namespace larkvox::testing {

/// Lilv, with the bundle in that folder alone beside the specifications.
class World {
  public:
    explicit World(const char* path) : world_(lilv_world_new()) {
        lilv_world_load_specifications(world_);
        LilvNode* const bundle = lilv_new_file_uri(world_, nullptr, path);
        lilv_world_load_bundle(world_, bundle);
        lilv_node_free(bundle);
        LilvNode* const uri = lilv_new_uri(world_, pluginUri);
        plugin_ = lilv_plugins_get_by_uri(lilv_world_get_all_plugins(world_), uri);
        lilv_node_free(uri);
    }
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    ~World() { lilv_world_free(world_); }

    [[nodiscard]] const LilvPlugin* plugin() const { return plugin_; }
    [[nodiscard]] std::string text(LilvNode* node) const {
        const std::string text = node != nullptr ? lilv_node_as_string(node) : "";
        lilv_node_free(node);
        return text;
    }
    [[nodiscard]] bool has(const LilvPort* port, const char* uri) const {
        LilvNode* const node = lilv_new_uri(world_, uri);
        const bool has = lilv_port_has_property(plugin_, port, node);
        lilv_node_free(node);
        return has;
    }

  private:
    LilvWorld* world_;
    const LilvPlugin* plugin_ = nullptr;
};

/// Numbers for names, as a host gives them.
class Urids {
  public:
    static LV2_URID map(LV2_URID_Map_Handle handle, const char* uri) {
        auto& numbers = static_cast<Urids*>(handle)->numbers_;
        return numbers.try_emplace(uri, static_cast<LV2_URID>(numbers.size() + 1)).first->second;
    }
    LV2_URID operator()(const char* uri) { return map(this, uri); }

  private:
    std::map<std::string, LV2_URID> numbers_;
};

/// What a host keeps of a plug-in's state.
struct Kept {
    LV2_URID key = 0;
    LV2_URID type = 0;
    std::string value;

    static LV2_State_Status store(LV2_State_Handle handle, LV2_URID key, const void* value,
                                  size_t size, LV2_URID type, std::uint32_t flags) {
        EXPECT_EQ(flags, LV2_STATE_IS_POD | LV2_STATE_IS_PORTABLE);
        *static_cast<Kept*>(handle) = {key, type, {static_cast<const char*>(value), size}};
        return LV2_STATE_SUCCESS;
    }
    static const void* retrieve(LV2_State_Handle handle, LV2_URID key, size_t* size,
                                std::uint32_t* type, std::uint32_t* flags) {
        const auto& kept = *static_cast<Kept*>(handle);
        *size = kept.value.size();
        *type = kept.type;
        *flags = LV2_STATE_IS_POD;
        return key == kept.key ? kept.value.data() : nullptr;
    }
};

} // namespace larkvox::testing
