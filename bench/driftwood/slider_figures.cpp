// A thousand sliders that all change, beside the toolkit's plain ones under Fusion in the same run,
// their memory, and one drag of a slider that edits a thousand presets.

#include "bench/figure.hpp"
#include "driftwood/controls/styled_slider.hpp"
#include "gallery/driftwood/preset_pane.hpp"
#include "platform/ui/appearance.hpp"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QSlider>
#include <QStyleFactory>

#include <malloc.h>

#include <chrono>
#include <memory>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int sliderCount = 1000;
constexpr int columns = 20;
constexpr int frames = 41;
constexpr QSize sliderSize(72, 22);

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

std::size_t heap() {
    return mallinfo2().uordblks;
}

/// A window full of sliders, in rows.
template<class Slider>
struct Wall {
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    std::vector<Slider*> sliders;
    std::size_t bytes = 0; // of one slider

    template<class Make>
    explicit Wall(Make make) {
        sliders.reserve(sliderCount);
        window->resize(columns * sliderSize.width(), sliderCount / columns * sliderSize.height());
        const std::size_t before = heap();
        for (int i = 0; i < sliderCount; ++i) {
            Slider* const slider = make(*window);
            slider->setGeometry(
                QRect(QPoint(i % columns * sliderSize.width(), i / columns * sliderSize.height()),
                      sliderSize));
            sliders.push_back(slider);
        }
        bytes = (heap() - before) / sliderCount;
        window->show();
        QCoreApplication::processEvents();
    }

    /// All sliders get another value and are painted.
    template<class Change>
    double frame(QImage& canvas, Change change) {
        const auto start = Clock::now();
        for (Slider* const slider : sliders) {
            change(*slider);
        }
        QPainter painter(&canvas);
        window->render(&painter, {}, {}, QWidget::DrawChildren);
        return milliseconds(Clock::now() - start);
    }
};

/// From a move of the mouse over the first slider of the pane to everything that follows from it.
double mixedEdit() {
    const auto edits =
        std::make_shared<gallery::PresetEdits>(std::vector<gallery::Preset>(sliderCount));
    edits->select(sliderCount);
    gallery::PresetPane pane(edits);
    pane.resize(pane.sizeHint());
    pane.show();
    QCoreApplication::processEvents();
    QWidget& track = pane.numbers().front().slider->track();
    const auto send = [&](QEvent::Type type, double x) {
        QMouseEvent event(type, QPointF(x, 12), QPointF(x, 12), Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&track, &event);
    };
    send(QEvent::MouseButtonPress, 20);
    std::vector<double> times;
    for (int i = 0; i < 200; ++i) {
        const auto start = Clock::now();
        send(QEvent::MouseMove, 20 + i % 150);
        times.push_back(1000 * milliseconds(Clock::now() - start));
    }
    send(QEvent::MouseButtonRelease, 20);
    return bench::median(times);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    platform::setAppearance(application, platform::Appearance::darkAqua);
    QStyle* const fusion = QStyleFactory::create(QStringLiteral("fusion"));
    fusion->setParent(&application);
    driftwood::StyledSlider first; // what all of them share is not theirs
    Wall<driftwood::StyledSlider> ours(
        [](QWidget& window) { return new driftwood::StyledSlider({}, &window); });
    Wall<QSlider> stock([fusion](QWidget& window) {
        auto* const slider = new QSlider(Qt::Horizontal, &window);
        slider->setStyle(fusion);
        slider->setRange(0, 1000);
        return slider;
    });
    QImage canvas(ours.window->size(), QImage::Format_ARGB32_Premultiplied);
    std::vector<double> oursTimes;
    std::vector<double> stockTimes;
    for (int i = 0; i < frames; ++i) { // in turn: the machine may be busy
        const int value = i * 24;
        oursTimes.push_back(
            ours.frame(canvas, [&](auto& slider) { slider.setDoubleValue(value / 1000.0); }));
        stockTimes.push_back(stock.frame(canvas, [&](auto& slider) { slider.setValue(value); }));
    }
    bench::figure("slider_bytes", static_cast<double>(ours.bytes), "bytes");
    bench::figure("plain_slider_bytes", static_cast<double>(stock.bytes), "bytes");
    bench::figure("sliders_1000_frame_ms", bench::median(oursTimes), "ms");
    bench::figure("sliders_vs_widgets", bench::median(oursTimes) / bench::median(stockTimes),
                  "of the toolkit's own sliders (≤ 0.7)");
    bench::figure("mixed_edit_1000_us", mixedEdit(), "µs (≤ 500)");
    return 0;
}
