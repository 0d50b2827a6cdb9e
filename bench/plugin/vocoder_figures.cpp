// The vocoder's sound per sample, beside the packaged vocoders in the same run; and what an
// instance costs to load and to keep.

#include "bench/figure.hpp"
#include "plugin/lv2/ports.hpp"

#include <lilv/lilv.h>
#include <lv2/core/lv2.h>

#include <array>
#include <chrono>
#include <cmath>
#include <fstream>
#include <limits>
#include <map>
#include <memory>
#include <random>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t block = 512;
constexpr int blocks = 12; // short, so that some rounds are undisturbed
constexpr int rounds = 600;

double milliseconds(Clock::time_point from) {
    return std::chrono::duration<double, std::milli>(Clock::now() - from).count();
}

/// In MiB.
double residentMemory() {
    std::ifstream file("/proc/self/statm");
    double whole = 0;
    double resident = 0;
    file >> whole >> resident;
    return resident * 4096 / (1024 * 1024);
}

using Values = std::map<std::string, float>;

/// A plug-in with noise at its inputs.
class Running {
  public:
    Running(const LilvPlugin* plugin, LilvWorld* world, const Values& values)
        : instance_(lilv_plugin_instantiate(plugin, 48000, noFeatures)) {
        LilvNode* const audio = lilv_new_uri(world, LV2_CORE__AudioPort);
        LilvNode* const input = lilv_new_uri(world, LV2_CORE__InputPort);
        const std::uint32_t count = lilv_plugin_get_num_ports(plugin);
        std::vector<float> defaults(count);
        lilv_plugin_get_port_ranges_float(plugin, nullptr, nullptr, defaults.data());
        std::minstd_rand random(1);
        std::uniform_real_distribution<float> sample(-0.3F, 0.3F);
        for (std::uint32_t i = 0; i < count; ++i) {
            const LilvPort* const port = lilv_plugin_get_port_by_index(plugin, i);
            auto& data = data_.emplace_back(std::make_unique<std::array<float, block>>());
            if (!lilv_port_is_a(plugin, port, audio)) {
                const auto set =
                    values.find(lilv_node_as_string(lilv_port_get_symbol(plugin, port)));
                const float value = std::isnan(defaults[i]) ? 0 : defaults[i];
                data->front() = set != values.end() ? set->second : value;
            } else if (lilv_port_is_a(plugin, port, input)) {
                for (float& value : *data) {
                    value = sample(random);
                }
            }
            lilv_instance_connect_port(instance_, i, data->data());
        }
        lilv_node_free(audio);
        lilv_node_free(input);
        lilv_instance_activate(instance_);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() {
        lilv_instance_deactivate(instance_);
        lilv_instance_free(instance_);
    }

    /// One round; keeps the best.
    void run() {
        const auto start = Clock::now();
        for (int i = 0; i < blocks; ++i) {
            lilv_instance_run(instance_, block);
        }
        best_ = std::min(best_, milliseconds(start) * 1e6 / (static_cast<double>(block) * blocks));
    }
    [[nodiscard]] double nanosecondsPerSample() const { return best_; }

  private:
    static constexpr const LV2_Feature* noFeatures[] = {nullptr};
    LilvInstance* instance_;
    std::vector<std::unique_ptr<std::array<float, block>>> data_;
    double best_ = std::numeric_limits<double>::infinity();
};

} // namespace

int main() {
    LilvWorld* const world = lilv_world_new();
    lilv_world_load_all(world);
    LilvNode* const folder = lilv_new_file_uri(world, nullptr, BUNDLE "/");
    lilv_world_load_bundle(world, folder);
    const auto plugin = [world](const char* uri) {
        LilvNode* const node = lilv_new_uri(world, uri);
        const LilvPlugin* const found =
            lilv_plugins_get_by_uri(lilv_world_get_all_plugins(world), node);
        lilv_node_free(node);
        return found;
    };
    const LilvPlugin* const ours = plugin(larkvox::pluginUri);
    if (ours == nullptr) {
        return 1;
    }

    const Values external{{"source", 3}, {"bands", 3}};
    lilv_plugin_get_num_ports(ours); // reads the description
    const auto start = Clock::now();
    Running first(ours, world, external);
    bench::figure("plugin_load_ms", milliseconds(start), "ms");
    constexpr int further = 32;
    {
        std::vector<std::unique_ptr<Running>> instances;
        const double before = residentMemory();
        for (int i = 0; i < further; ++i) {
            instances.push_back(std::make_unique<Running>(ours, world, external));
            instances.back()->run();
        }
        bench::figure("plugin_instance_mib", (residentMemory() - before) / further, "MiB");
    }

    struct Peer {
        const char* uri;
        Values values;
        double bands;
    };
    std::vector<std::pair<std::unique_ptr<Running>, double>> peers;
    for (const auto& [uri, values, bands] :
         {Peer{"http://drobilla.net/plugins/mda/Vocoder", {{"quality", 0}}, 8},
          Peer{"http://drobilla.net/plugins/mda/Vocoder", {{"quality", 1}}, 16},
          Peer{"http://home.gna.org/lv2vocoder/1", {{"active", 16}}, 16}}) {
        if (const LilvPlugin* const peer = plugin(uri)) {
            peers.emplace_back(std::make_unique<Running>(peer, world, values), bands);
        }
    }
    Running oscillator(ours, world, {{"bands", 3}, {"unison", 5}});
    for (int round = 0; round < rounds; ++round) {
        first.run();
        oscillator.run();
        for (const auto& [peer, bands] : peers) {
            peer->run();
        }
    }
    bench::figure("vocoder_ns_per_sample", first.nanosecondsPerSample(), "ns");
    bench::figure("vocoder_eight_voices_ns_per_sample", oscillator.nanosecondsPerSample(), "ns");
    double fastest = std::numeric_limits<double>::infinity();
    for (const auto& [peer, bands] : peers) {
        std::fprintf(stderr, "a packaged vocoder: %.1f ns per sample, %.0f bands\n",
                     peer->nanosecondsPerSample(), bands);
        fastest = std::min(fastest, peer->nanosecondsPerSample() / bands);
    }
    if (peers.empty()) {
        std::fprintf(stderr,
                     "vocoder_vs_peers: NOT MEASURED, neither mda-lv2 nor lv2vocoder is here\n");
    } else {
        bench::figure("vocoder_vs_peers", first.nanosecondsPerSample() / 16 / fastest, "x");
    }
    lilv_node_free(folder);
    return 0;
}
