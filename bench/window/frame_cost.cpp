// What a frame of each visual costs the processor apart from the GPU's driver: on the null device,
// through the whole path of a frame, with every heap allocation counted.

#include "bench/figure.hpp"
#include "platform/gpu/gpu_view.hpp"
#include "shaders/about_visual.hpp"
#include "shaders/metal_shader.hpp"
#include "shaders/supporter_visual.hpp"

#include <QApplication>

#include <atomic>
#include <cstdlib>
#include <ctime>
#include <string>

namespace {

std::atomic<long> allocations{0};

double processorMicroseconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

} // namespace

// The C library lets a program put its own in place; these count and go on to the originals.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
__attribute__((visibility("default"))) void* malloc(std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}
__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_calloc(count, size);
}
__attribute__((visibility("default"))) void* realloc(void* block, std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_realloc(block, size);
}
}

namespace {

struct Cost {
    double microseconds;
    double allocations;
};

/// Of one frame, in the middle of many.
Cost costOf(platform::GpuView& view, kestrel::QuadRenderer& renderer) {
    view.setDelegate(&renderer);
    constexpr int warmUp = 100;
    constexpr int frames = 20'000;
    for (int i = 0; i < warmUp; ++i) {
        if (!view.drawNow()) {
            std::fprintf(stderr, "the null device does not draw\n");
            std::exit(1);
        }
    }
    const long framesBefore = view.frameCount();
    const long allocationsBefore = allocations;
    const double before = processorMicroseconds();
    for (int i = 0; i < frames; ++i) {
        view.drawNow();
    }
    const double after = processorMicroseconds();
    const long counted = allocations - allocationsBefore;
    if (view.frameCount() - framesBefore != frames) {
        std::fprintf(stderr, "frames were skipped\n");
        std::exit(1);
    }
    view.setDelegate(nullptr);
    return {(after - before) / frames, static_cast<double>(counted) / frames};
}

void report(const std::string& visual, const Cost& cost) {
    bench::figure(("visual_frame_cpu_us_" + visual).c_str(), cost.microseconds, "us");
    bench::figure(("visual_allocations_" + visual).c_str(), cost.allocations, "allocations");
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    platform::GpuView view(nullptr, platform::GpuDevice::headless(platform::GpuApi::null));
    view.resize(400, 300);

    kestrel::MetalShaderRenderer waveform(view, QStringLiteral("Main"),
                                          QStringLiteral("audioWaveformVertexShader"),
                                          QStringLiteral("audioWaveformFragmentShader"));
    const Cost cost = costOf(view, waveform);
    bench::figure("frame_cpu_us", cost.microseconds, "us");
    bench::figure("frame_allocations", cost.allocations, "allocations");
    report("waveform", cost);

    kestrel::AboutRenderer about(view);
    report("about", costOf(view, about));

    kestrel::SupporterShaderRenderer supporter(view, QStringLiteral("Supporter"));
    supporter.recordSwitchEvent(2);
    report("supporter", costOf(view, supporter));
    return 0;
}
