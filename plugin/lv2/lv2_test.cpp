// The plug-in as a host finds it: its description, its library, what it does in a host's program.

#include "fernhorn/model/parameter_state.hpp"
#include "plugin/lv2/ports.hpp"
#include "plugin/lv2/turtle.hpp"
#include "plugin/lv2/window_state.hpp"
#include "plugin/testing/lv2_host.hpp"
#include "plugin/testing/sound.hpp"

#include <gtest/gtest.h>
#include <lilv/lilv.h>
#include <lv2/atom/atom.h>
#include <lv2/core/lv2.h>
#include <lv2/state/state.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

namespace larkvox {
namespace {

using testing::Kept;
using testing::Sound;
using testing::Urids;
namespace fs = std::filesystem;

class Lv2Test : public ::testing::Test {
  protected:
    struct Free {
        void operator()(LilvInstance* instance) const { lilv_instance_free(instance); }
    };
    using Instance = std::unique_ptr<LilvInstance, Free>;

    Instance instance(bool hasMap = true, double rate = 48000) {
        const std::array<const LV2_Feature*, 2> features{hasMap ? &mapFeature : nullptr, nullptr};
        return Instance(lilv_plugin_instantiate(world.plugin(), rate, features.data()));
    }
    static const LV2_State_Interface& stateOf(const Instance& instance) {
        return *static_cast<const LV2_State_Interface*>(
            lilv_instance_get_extension_data(instance.get(), LV2_STATE__interface));
    }
    static const WindowState& windowOf(const Instance& instance) {
        return *static_cast<const WindowState*>(
            lilv_instance_get_extension_data(instance.get(), WindowState::uri));
    }

    testing::World world{BUNDLE "/"};
    Urids urids;
    LV2_URID_Map map{&urids, &Urids::map};
    LV2_Feature mapFeature{LV2_URID__map, &map};
};

TEST_F(Lv2Test, TheDescriptionSaysWhatTheParametersAre) {
    ASSERT_NE(world.plugin(), nullptr);
    EXPECT_TRUE(lilv_plugin_verify(world.plugin()));
    ASSERT_EQ(lilv_plugin_get_num_ports(world.plugin()), firstControl + controlPortCount);
    for (std::size_t address = 0; address < vocoderParameterCount; ++address) {
        const auto& description = vocoderParameters()[address];
        if (description.isOfWindow()) {
            continue;
        }
        SCOPED_TRACE(description.identifier);
        const LilvPort* const port = lilv_plugin_get_port_by_index(world.plugin(), portOf(address));
        EXPECT_STREQ(lilv_node_as_string(lilv_port_get_symbol(world.plugin(), port)),
                     description.identifier);
        EXPECT_EQ(world.text(lilv_port_get_name(world.plugin(), port)), description.name);
        LilvNode* value = nullptr;
        LilvNode* least = nullptr;
        LilvNode* most = nullptr;
        lilv_port_get_range(world.plugin(), port, &value, &least, &most);
        EXPECT_EQ(lilv_node_as_float(value), description.defaultValue);
        EXPECT_EQ(lilv_node_as_float(least), description.range.lower);
        EXPECT_EQ(lilv_node_as_float(most), description.range.upper);
        for (LilvNode* const node : {value, least, most}) {
            lilv_node_free(node);
        }
        EXPECT_EQ(world.has(port, LV2_CORE__integer), !description.names.empty());
        LilvScalePoints* const points = lilv_port_get_scale_points(world.plugin(), port);
        EXPECT_EQ(points != nullptr ? lilv_scale_points_size(points) : 0, description.names.size());
        lilv_scale_points_free(points);
    }
}

TEST_F(Lv2Test, TheFilesInTheBundleAreThoseOfThisDescription) {
    const auto content = [](const char* name) {
        std::ifstream file(std::string(BUNDLE "/") + name);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    EXPECT_EQ(content("manifest.ttl"), manifestTurtle());
    EXPECT_EQ(content("larkvox.ttl"), pluginTurtle());
}

TEST_F(Lv2Test, TheValidatorFindsNothing) {
    if (std::system("command -v lv2_validate >/dev/null") != 0) {
        GTEST_SKIP() << "NOT TESTED: lv2_validate (package lilv-utils or lv2-dev) is missing";
    }
    EXPECT_EQ(std::system("lv2_validate " BUNDLE "/*.ttl 2>&1 | grep -q 'Found 0 errors'"), 0);
}

TEST_F(Lv2Test, TheWindowsPageIsKeptWithTheSession) {
    Kept kept;
    const auto first = instance();
    const auto& window = windowOf(first);
    void* const plugin = lilv_instance_get_handle(first.get());
    window.set(plugin, 0, 2);
    window.set(plugin, 0, 17);
    window.set(plugin, 0, std::nanf(""));
    window.set(plugin, 3, 1);
    EXPECT_EQ(window.get(plugin, 0), 2);
    ASSERT_EQ(stateOf(first).save(plugin, &Kept::store, &kept, 0, nullptr), LV2_STATE_SUCCESS);
    EXPECT_EQ(kept.type, urids(LV2_ATOM__String));

    const auto second = instance();
    void* const other = lilv_instance_get_handle(second.get());
    const auto restore = [&](const std::string& text) {
        kept.value = text;
        return stateOf(second).restore(other, &Kept::retrieve, &kept, 0, nullptr);
    };
    ASSERT_EQ(restore(kept.value), LV2_STATE_SUCCESS);
    EXPECT_EQ(windowOf(second).get(other, 0), 2);

    // Nonsense changes nothing; what a later version has written comes back unchanged.
    for (const auto* const nonsense :
         {"", "page 1", "[1]", R"({"version": 1, "parameters": {"page": "one"}, "texts": {}})"}) {
        EXPECT_NE(restore(nonsense), LV2_STATE_SUCCESS) << nonsense;
        EXPECT_EQ(windowOf(second).get(other, 0), 2) << nonsense;
    }
    fernhorn::ParameterState later{.version = 1, .values = {{"glow", 0.25F}, {"page", 1}}};
    later.texts["name"] = "Choir";
    ASSERT_EQ(restore(later.text()), LV2_STATE_SUCCESS);
    ASSERT_EQ(stateOf(second).save(other, &Kept::store, &kept, 0, nullptr), LV2_STATE_SUCCESS);
    EXPECT_EQ(fernhorn::ParameterState::fromText(kept.value.c_str()), later);
    ASSERT_EQ(restore(fernhorn::ParameterState{}.text()), LV2_STATE_SUCCESS);
    EXPECT_EQ(windowOf(second).get(other, 0), 0) << "what is missing takes its default";

    const auto bare = instance(false);
    void* const third = lilv_instance_get_handle(bare.get());
    EXPECT_EQ(stateOf(bare).save(third, &Kept::store, &kept, 0, nullptr), LV2_STATE_ERR_NO_FEATURE);
}

TEST_F(Lv2Test, RunsWithoutACarrierInPlaceAndWithPortsLeftOut) {
    const auto made = instance();
    LilvInstance* const plugin = made.get();
    std::array<float, 5000> block{};
    std::array<float, 5000> right{};
    block.fill(0.25F);
    lilv_instance_activate(plugin);
    lilv_instance_run(plugin, 512); // nothing is connected at all
    lilv_instance_connect_port(plugin, modulator, block.data());
    lilv_instance_connect_port(plugin, left, block.data());
    lilv_instance_connect_port(plugin, ::larkvox::right, right.data());
    const float on = 1;
    lilv_instance_connect_port(plugin, portOf(indexOf(VocoderParameter::bypass)),
                               const_cast<float*>(&on));
    lilv_instance_activate(plugin);
    lilv_instance_run(plugin, block.size());
    lilv_instance_run(plugin, 0);
    EXPECT_EQ(block.back(), 0.25F);
    EXPECT_EQ(right.front(), 0.25F);
    lilv_instance_deactivate(plugin);
}

/// A program that makes files of sound with plug-ins.
class RenderTest : public ::testing::Test {
  protected:
    static constexpr unsigned rate = 44100;

    void SetUp() override {
        if (std::system("command -v lv2file >/dev/null") != 0 || voice.empty()) {
            GTEST_SKIP() << "NOT TESTED: lv2file or espeak-ng is missing";
        }
        ASSERT_TRUE(
            testing::writeWave(input, {voice, testing::sawCarrier(110, rate, voice.size())}, rate));
    }
    void TearDown() override { fs::remove_all(folder); }

    Sound render(const std::string& options) const {
        const std::string output = (folder / "out.wav").string();
        const std::string command = "LV2_PATH='" + fs::path(BUNDLE).parent_path().string() +
                                    "' " HOST_ENVIRONMENT " lv2file -i '" + input + "' -o '" +
                                    output + "' -c 1:modulator -c 2:carrier " + options + " " +
                                    pluginUri + " >'" + (folder / "log").string() + "' 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0)
            << std::ifstream(folder / "log").rdbuf() << command;
        const auto channels = testing::readWave(output);
        return channels.size() == 2 ? channels[0] : Sound{};
    }

    const fs::path folder = [] {
        auto path = (fs::temp_directory_path() / "larkvox-XXXXXX").string();
        return fs::path(mkdtemp(path.data()));
    }();
    const std::string input = (folder / "in.wav").string();
    const Sound voice = testing::spokenVoice(rate);
};

TEST_F(RenderTest, GivesTheSameSoundEveryTimeInBlocksOfAnySize) {
    const auto sound = render("-p source:3 -b 512");
    ASSERT_GE(sound.size(), voice.size());
    EXPECT_GE(testing::envelopeCorrelation(voice, sound, rate), 0.9);
    EXPECT_GE(testing::repetition(sound, 110, rate), 0.8);
    for (const char* const block : {"512", "64", "4096"}) {
        auto again = render(std::string("-p source:3 -b ") + block);
        again.resize(voice.size());
        EXPECT_TRUE(std::equal(again.begin(), again.end(), sound.begin())) << block;
    }
}

} // namespace
} // namespace larkvox
