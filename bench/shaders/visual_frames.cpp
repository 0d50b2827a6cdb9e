// How long the machine's OpenGL driver takes for a frame of each visual, at 400 x 300 pixels and
// without a window: time and processor time from one finished frame to the next.

#include "bench/figure.hpp"
#include "platform/gpu/gpu_view.hpp"
#include "shaders/about_visual.hpp"
#include "shaders/metal_shader.hpp"
#include "shaders/supporter_visual.hpp"

#include <QApplication>

#include <chrono>
#include <ctime>
#include <string>

namespace {

double seconds(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

void measure(const char* name, platform::GpuView& view, kestrel::QuadRenderer& renderer,
             core::ManualClock& clock) {
    view.setDelegate(&renderer);
    constexpr int warmUp = 20;
    constexpr int rounds = 15;
    constexpr int framesPerRound = 20;
    std::vector<double> times;
    double processorTime = 0;
    for (int round = 0; round < rounds + 1; ++round) {
        const double start = seconds(CLOCK_MONOTONIC);
        const double processorStart = seconds(CLOCK_PROCESS_CPUTIME_ID);
        const int frames = round == 0 ? warmUp : framesPerRound;
        for (int i = 0; i < frames; ++i) {
            clock.advance(core::Seconds(1.0 / 60));
            view.drawNow();
        }
        (void)view.grabFramebuffer(); // waits until the last one is there
        if (round > 0) {
            times.push_back((seconds(CLOCK_MONOTONIC) - start) * 1e3 / framesPerRound);
            processorTime += seconds(CLOCK_PROCESS_CPUTIME_ID) - processorStart;
        }
    }
    view.setDelegate(nullptr);
    bench::figure((std::string("visual_frame_ms_") + name).c_str(), bench::median(times), "ms");
    bench::figure((std::string("visual_frame_driver_cpu_ms_") + name).c_str(),
                  processorTime * 1e3 / (rounds * framesPerRound), "ms");
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const auto device = platform::GpuDevice::headless(platform::GpuApi::openGL);
    if (device == nullptr) {
        std::fprintf(stderr, "no OpenGL\n");
        return 1;
    }
    platform::GpuView view(nullptr, device);
    view.resize(400, 300);
    core::ManualClock clock;

    kestrel::MetalShaderRenderer waveform(
        view, QStringLiteral("Main"), QStringLiteral("audioWaveformVertexShader"),
        QStringLiteral("audioWaveformFragmentShader"), {}, clock, [] { return 7U; });
    measure("waveform", view, waveform, clock);

    kestrel::AboutRenderer about(view, clock);
    measure("about", view, about, clock);

    kestrel::SupporterShaderRenderer supporter(view, QStringLiteral("Supporter"), clock);
    supporter.switchOnState = {0, 1, 0, 1, 1, 0};
    for (const int index : {1, 3, 4}) {
        supporter.recordSwitchEvent(index);
    }
    measure("supporter", view, supporter, clock);
    return 0;
}
