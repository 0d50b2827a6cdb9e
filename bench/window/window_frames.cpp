// window_frames FIGURE: shows the program's own window and measures it on the screen.
//   waveform_frame_ms, waveform_frame_2x_ms (with QT_SCALE_FACTOR=2): 95th percentile of the time
//   from frame to frame, compositing included
//   unfocused_frames: frames drawn in 3 s after the window has resigned key

#include "app/larkvox_app.hpp"
#include "bench/figure.hpp"
#include "platform/assets/bundle.hpp"
#include "platform/gpu/gpu_view.hpp"
#include "platform/ui/window_scene.hpp"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <string_view>

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
