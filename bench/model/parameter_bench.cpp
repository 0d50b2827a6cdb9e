// What one change costs the thread that makes it, and the main thread. Fails when a change is not
// delivered.
#include "bench/model/allocation_count.hpp"
#include "bench/model/bench_support.hpp"
#include "fernhorn/model/parameter_settings.hpp"

#include <cstdlib>
#include <cstring>
#include <sys/resource.h>

namespace {

using fernhorn::ParameterEditor;
using fernhorn::ParameterEditorState;

constexpr long burst = 1024;
constexpr auto period = std::chrono::milliseconds(2);
constexpr auto change = ParameterEditorState::change;
bool hasFailed = false;

void require(bool isTrue, const char* what, long expected, long actual) {
    if (!isTrue) {
        std::fprintf(stderr, "FAILED: %s: expected %ld, got %ld\n", what, expected, actual);
        hasFailed = true;
    }
}

class IdleUnit final : public fernhorn::FernAudioUnit {
  public:
    void setParameter(platform::AUParameterAddress, float value) override {
        last.store(value, std::memory_order_relaxed);
    }
    std::atomic<float> last{0};
};

/// Bursts of different values over as many parameters, from a second thread, while the main
/// thread drains.
void measureBursts(const char* name, ParameterEditor source, bool isConnected, int rounds) {
    core::MainQueue queue;
    bench::MainLoop loop(queue);
    bench::Parameters parameters(burst, queue);
    const auto unit = std::make_shared<IdleUnit>();
    const auto settings = std::make_shared<fernhorn::ParameterSettings>();
    if (isConnected) {
        settings->setupParameters(parameters.all);
        settings->configureAudioUnit(unit);
        settings->setupParameterTreeListeners();
    }
    std::vector<double> samples;
    samples.reserve(static_cast<std::size_t>(rounds));
    std::atomic<bool> isOver{false};
    long allocations = 0;
    std::thread writer([&] {
        long n = 0;
        auto next = bench::Clock::now();
        for (int round = -50; round < rounds; ++round) { // the first ones warm up
            const bench::AllocationCount count;
            const auto start = bench::Clock::now();
            for (const auto& parameter : parameters.all) {
                parameter->setValue(bench::valueAt(n++), source, change);
            }
            const double each = bench::nanosecondsSince(start) / burst;
            if (round >= 0) {
                allocations += count.sinceStart();
                samples.push_back(each);
            }
            // Where others keep the main thread from running, the next burst waits.
            do {
                std::this_thread::sleep_until(next += period);
            } while (parameters.delivered < n);
        }
        isOver = true;
        loop.wake();
    });
    loop.runUntil(isOver);
    writer.join();
    queue.drain();
    bench::printSamples(name, samples, "ns");
    const long sent = burst * (rounds + 50);
    require(parameters.delivered == sent, name, sent, parameters.delivered.load());
    if (source == ParameterEditor::parameterObserver) {
        bench::print("set_value_allocations",
                     static_cast<double>(allocations) / static_cast<double>(burst * rounds),
                     "per_call");
        bench::print("set_value_wakes_per_burst", static_cast<double>(loop.wakes()) / (rounds + 50),
                     "per_burst");
        require(allocations == 0, "allocations", 0, allocations);
    }
}

/// The queue is full of something else, so that everything merges.
void measureFull(int rounds) {
    core::MainQueue queue;
    bench::Parameters parameters(burst, queue);
    std::vector<double> samples;
    long n = 0;
    long allocations = 0;
    for (int round = 0; round < rounds; ++round) {
        while (queue.tryPost([] {})) {
        }
        std::thread([&] {
            for (int again = 0; again < 4; ++again) { // the first time puts each one in line
                const bench::AllocationCount count;
                const auto start = bench::Clock::now();
                for (const auto& parameter : parameters.all) {
                    parameter->setValue(bench::valueAt(n++), ParameterEditor::parameterObserver,
                                        change);
                }
                const double each = bench::nanosecondsSince(start) / burst;
                allocations += count.sinceStart();
                samples.push_back(each);
            }
        }).join();
        queue.drain();
        for (long i = 0; i < burst; ++i) {
            const float shown = parameters.all[static_cast<std::size_t>(i)]->value();
            const float last = bench::valueAt(n - burst + i);
            require(shown == last, "newest value", static_cast<long>(last),
                    static_cast<long>(shown));
        }
    }
    bench::printSamples("set_value_full_ns", samples, "ns");
    bench::print("set_value_full_allocations", static_cast<double>(allocations), "calls");
    require(allocations == 0, "allocations when full", 0, allocations);
}

void measureDrain(int rounds) {
    core::MainQueue queue;
    bench::Parameters parameters(burst, queue);
    std::vector<double> samples;
    long n = 0;
    for (int round = 0; round < rounds; ++round) {
        std::thread([&] {
            for (const auto& parameter : parameters.all) {
                parameter->setValue(bench::valueAt(n++), ParameterEditor::parameterObserver,
                                    change);
            }
        }).join();
        const auto start = bench::Clock::now();
        queue.drain();
        samples.push_back(bench::nanosecondsSince(start) / 1000);
    }
    bench::printSamples("drain_1024_us", samples, "us");
    require(parameters.delivered == n, "drained", n, parameters.delivered.load());
}

void measureMapping() {
    const fernhorn::ValueMapping mapping{{20, 20'000},
                                         fernhorn::ValueIncrement::logarithmic(1000.0F)};
    std::vector<double> samples;
    float value = 440;
    for (int round = 0; round < 50; ++round) {
        constexpr int calls = 20'000;
        const auto start = bench::Clock::now();
        for (int i = 0; i < calls; ++i) {
            value = mapping.valueForNormalizedPosition(mapping.normalizedPosition(value));
        }
        samples.push_back(bench::nanosecondsSince(start) / calls);
    }
    bench::printSamples("map_ns", samples, "ns");
    require(value > 400 && value < 480, "round trips", 440, static_cast<long>(value));
}

long residentKibibytes() {
    long pages = 0;
    if (std::FILE* const file = std::fopen("/proc/self/statm", "r")) {
        long all = 0;
        if (std::fscanf(file, "%ld %ld", &all, &pages) != 2) {
            pages = 0;
        }
        std::fclose(file);
    }
    return pages * (sysconf(_SC_PAGESIZE) / 1024);
}

long peakKibibytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// An editor closes right behind an automation that it has shown, and opens again.
void measureReopening(long count) {
    core::MainQueue queue;
    bench::Parameters parameters(1, queue);
    long lost = 0;
    for (long i = 0; i < count; ++i) {
        bench::CountingWaker waker;
        queue.addWaker(waker);
        const long before = parameters.delivered;
        parameters.all[0]->setValue(bench::valueAt(2 * i), ParameterEditor::parameterObserver,
                                    change);
        [[maybe_unused]] auto next = queue.pump(); // "soon", and then it is closed
        queue.removeWaker(waker);
        bench::CountingWaker again;
        queue.addWaker(again);
        parameters.all[0]->setValue(bench::valueAt(2 * i + 1), ParameterEditor::parameterObserver,
                                    change);
        if (again.count > 0) {
            next = queue.pump();
        }
        lost += parameters.delivered == before + 2 ? 0 : 1;
        queue.removeWaker(again);
    }
    bench::print("editor_reopen_lost", static_cast<double>(lost), "of_10000");
    require(lost == 0, "automation after reopening", 0, lost);
}

/// Two threads, each writing half of the parameters in every block of 64 frames at 48 kHz.
void measureStorm(double seconds) {
    constexpr std::size_t count = 4096;
    constexpr auto block = std::chrono::nanoseconds(1'000'000'000 / 750);
    core::MainQueue queue;
    auto loop = std::make_unique<bench::MainLoop>(queue);
    bench::Parameters parameters(count, queue);
    long editors = 0;
    std::atomic<bool> isOver{false};
    std::atomic<int> running{2};
    std::atomic<long> settled{0};
    const long blocks = static_cast<long>(seconds * 750);
    std::vector<std::thread> writers;
    for (std::size_t half = 0; half < 2; ++half) {
        writers.emplace_back([&, half] {
            auto next = bench::Clock::now();
            for (long i = 0; i < blocks; ++i) {
                for (std::size_t p = half; p < count; p += 2) {
                    parameters.all[p]->setValue(bench::valueAt(i),
                                                ParameterEditor::parameterObserver, change);
                }
                std::this_thread::sleep_until(next += block);
            }
            --running;
        });
    }
    std::thread watcher([&] {
        // Everything that grows at first has its size after a quarter.
        std::this_thread::sleep_for(std::chrono::duration<double>(seconds / 4));
        settled = peakKibibytes();
        while (running > 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        isOver = true;
    });
    while (!isOver) {
        loop->runFor(std::chrono::milliseconds(7), isOver);
        loop.reset(); // the editor closes, and opens again
        ++editors;
        loop = std::make_unique<bench::MainLoop>(queue);
    }
    loop->runUntil(isOver);
    long lost = 0;
    for (const auto& parameter : parameters.all) {
        lost += parameter->value() != bench::valueAt(blocks - 1) ? 1 : 0;
    }
    for (auto& writer : writers) {
        writer.join();
    }
    watcher.join();
    bench::print("storm_lost", static_cast<double>(lost), "parameters");
    bench::print("storm_editors", static_cast<double>(editors), "opened_and_closed");
    bench::print("storm_delivered_share",
                 static_cast<double>(parameters.delivered.load()) /
                     (static_cast<double>(blocks) * count),
                 "of_sent");
    bench::print("storm_peak_memory_kib", static_cast<double>(peakKibibytes()), "KiB");
    bench::print("storm_memory_growth_kib", static_cast<double>(peakKibibytes() - settled), "KiB");
    bench::print("storm_resident_kib", static_cast<double>(residentKibibytes()), "KiB");
    require(lost == 0, "parameters lost", 0, lost);
}

} // namespace

// With "short", everything runs for a moment only.
int main(int count, char** arguments) {
    const bool isShort = count > 1 && std::strcmp(arguments[1], "short") == 0;
    const int rounds = isShort ? 50 : 1000;
    measureBursts("set_value_ns", ParameterEditor::parameterObserver, false, rounds);
    measureBursts("set_value_ui_ns", ParameterEditor::ui, false, rounds);
    measureBursts("set_value_ui_connected_ns", ParameterEditor::ui, true, rounds);
    measureFull(rounds / 5);
    measureDrain(rounds / 2);
    measureMapping();
    measureReopening(10'000);
    measureStorm(isShort ? 0.5 : 20);
    return hasFailed ? EXIT_FAILURE : EXIT_SUCCESS;
}
