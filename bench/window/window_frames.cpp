// window_frames FIGURE: shows the program's own window and measures it on the screen.
//   waveform_frame_ms, waveform_frame_2x_ms (with QT_SCALE_FACTOR=2): 95th percentile of the time
//   from frame to frame, compositing included
//   unfocused_frames: frames drawn in 3 s after the window has resigned key
//   running_cpu_percent, idle_cpu_percent_unfocused, idle_cpu_percent_minimised: the program's
//   share of one core over 10 s, and how often a second it wakes

#include "app/larkvox_app.hpp"
#include "bench/figure.hpp"
#include "platform/assets/bundle.hpp"
#include "platform/gpu/gpu_view.hpp"
#include "platform/ui/window_scene.hpp"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <ctime>
#include <string_view>

#include <sys/resource.h>

namespace {

constexpr int warmUp = 60;
constexpr int counted = 600;

/// Notes when the view is asked to paint.
class PaintTimes final : public QObject {
  public:
    explicit PaintTimes(platform::GpuView& view) {
        view.installEventFilter(this);
        clock_.start();
    }
    bool eventFilter(QObject* /*object*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            times.push_back(static_cast<double>(clock_.nsecsElapsed()) / 1e6);
        }
        return false;
    }
    std::vector<double> times;

  private:
    QElapsedTimer clock_;
};

double processorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// How often this process has waited so far, in all of its threads.
long wakeUps() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_nvcsw;
}

void runFor(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: window_frames FIGURE\n");
        return 2;
    }
    QApplication application(argc, argv);
    const platform::Bundle bundle(
        QDir(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/larkvox")));
    larkvox::prepareApplication(application, bundle);
    larkvox::LarkvoxApp app;
    app.appDelegate().applicationDidFinishLaunching(&application);
    const auto window = app.makeWindow(bundle);
    window->show();
    QApplication::setActiveWindow(window.get());
    runFor(500);
    auto* const view = window->findChild<platform::GpuView*>();
    if (view == nullptr || view->frameCount() == 0) {
        std::fprintf(stderr, "the waveform does not draw\n");
        return 1;
    }
    const std::string_view name = argv[1];
    if (name == "unfocused_frames") {
        QWidget other;
        other.show();
        QApplication::setActiveWindow(&other);
        runFor(100); // a frame may be under way
        if (!view->isPaused()) {
            std::fprintf(stderr, "the window has not resigned key\n");
            return 1;
        }
        const long before = view->frameCount();
        runFor(3000);
        bench::figure(argv[1], static_cast<double>(view->frameCount() - before), "frames");
        return 0;
    }
    if (name.find("cpu_percent") != std::string_view::npos) {
        QWidget other;
        if (name == "idle_cpu_percent_unfocused") {
            other.show();
            QApplication::setActiveWindow(&other);
        } else if (name == "idle_cpu_percent_minimised") {
            window->showMinimized();
        }
        runFor(1000);
        constexpr int seconds = 10;
        const double before = processorSeconds();
        const long wakeUpsBefore = wakeUps();
        const long framesBefore = view->frameCount();
        runFor(seconds * 1000);
        bench::figure(argv[1], 100 * (processorSeconds() - before) / seconds, "percent");
        std::printf("  %.1f wake-ups and %.1f frames a second\n",
                    static_cast<double>(wakeUps() - wakeUpsBefore) / seconds,
                    static_cast<double>(view->frameCount() - framesBefore) / seconds);
        return 0;
    }
    PaintTimes paints(*view);
    const long before = view->frameCount();
    while (view->frameCount() < before + warmUp + counted) {
        runFor(100);
    }
    std::vector<double> intervals;
    for (std::size_t i = warmUp; i + 1 < paints.times.size(); ++i) {
        intervals.push_back(paints.times[i + 1] - paints.times[i]);
    }
    bench::figure(argv[1], bench::percentile(intervals, 0.95), "ms");
    std::printf("  median %.2f ms over %zu frames\n", bench::median(intervals), intervals.size());
    return 0;
}
