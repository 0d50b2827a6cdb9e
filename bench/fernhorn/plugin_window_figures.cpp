// Opening a whole plug-in window, about forty controls, in a fresh process: the time to its first
// paint and the memory of the knob frames that it took. Several processes, since the second window
// of a process finds the frames of the first.

#include "bench/figure.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "platform/ui/appearance.hpp"
#include "plugin/window/plugin_window.hpp"

#include <QApplication>
#include <QProcess>

#include <array>
#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int rounds = 9;
constexpr int frames = 51;
constexpr std::array strips{"chaos-dial-grey_", "dial-medium-blue-",   "dial-medium-yellow-",
                            "dial-medium-red-", "dial-medium-purple-", "dial-small-grey-"};

/// Tells when a window has been painted: its children follow before the event loop goes on.
class PaintWatch final : public QObject {
  public:
    [[nodiscard]] bool hasPainted() const { return hasPainted_; }

  protected:
    bool eventFilter(QObject* /*object*/, QEvent* event) override {
        hasPainted_ = hasPainted_ || event->type() == QEvent::Paint;
        return false;
    }

  private:
    bool hasPainted_ = false;
};

double decodedMebibytes() {
    std::size_t bytes = 0;
    for (const char* const strip : strips) {
        for (int i = 1; i <= frames; ++i) {
            const auto name =
                QStringLiteral("knobs/%1%2").arg(QLatin1String(strip)).arg(i, 2, 10, QChar(u'0'));
            if (const auto* const image = fernhorn::resourceBundle().assets().image(name)) {
                bytes += image->pixelBytes();
            }
        }
    }
    return static_cast<double>(bytes) / (1024 * 1024);
}

int openOnce(int& argc, char** argv) {
    QApplication application(argc, argv);
    platform::setAppearance(application, platform::Appearance::darkAqua);
    fernhorn::resourceBundle().assets().registerFonts();
    const auto settings = larkvox::VocoderSettings::make(core::MainQueue::shared());

    const auto start = Clock::now();
    larkvox::PluginWindow window(settings);
    PaintWatch watch;
    window.installEventFilter(&watch);
    window.show();
    while (!watch.hasPainted()) {
        QCoreApplication::processEvents();
    }
    const std::chrono::duration<double, std::milli> taken = Clock::now() - start;
    std::printf("%f %f\n", taken.count(), decodedMebibytes());
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 2 && QByteArrayView(argv[1]) == "--once") {
        return openOnce(argc, argv);
    }
    const QCoreApplication application(argc, argv);
    std::vector<double> opening;
    std::vector<double> memory;
    for (int i = 0; i < rounds; ++i) {
        QProcess once;
        once.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        once.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--once")});
        if (!once.waitForFinished() || once.exitCode() != 0) {
            std::fprintf(stderr, "the window does not open\n");
            return 1;
        }
        const auto numbers = once.readAllStandardOutput().simplified().split(' ');
        opening.push_back(numbers.value(0).toDouble());
        memory.push_back(numbers.value(1).toDouble());
    }
    bench::figure("dial_open_ms", bench::median(opening), "ms");
    bench::figure("strip_mib", bench::median(memory), "MiB");
    return 0;
}
