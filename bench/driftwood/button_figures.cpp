// The cost of the kit's buttons: looking up their images, painting them, restyling thousands.

#include "bench/figure.hpp"
#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/controls/styled_button.hpp"
#include "platform/ui/appearance.hpp"

#include <QApplication>
#include <QPainter>
#include <QPushButton>

#include <chrono>
#include <malloc.h>

namespace {

using driftwood::StyledButton;
using driftwood::StyledButtonCell;
using Clock = std::chrono::steady_clock;

constexpr int buttonCount = 5000;
constexpr int perRow = 50;
constexpr QSize place(60, 24);

double seconds(Clock::duration duration) {
    return std::chrono::duration<double>(duration).count();
}

/// The median time of one call in a series.
template<class Call>
double timeOf(int rounds, int callsPerRound, Call call) {
    std::vector<double> samples;
    for (int round = 0; round < rounds; ++round) {
        const auto start = Clock::now();
        for (int i = 0; i < callsPerRound; ++i) {
            call(i);
        }
        samples.push_back(seconds(Clock::now() - start) / callsPerRound);
    }
    return bench::median(samples);
}

int paints = 0;

template<class Button>
class Counted final : public Button {
  public:
    using Button::Button;

  protected:
    void paintEvent(QPaintEvent* event) override {
        ++paints;
        Button::paintEvent(event);
    }
};

/// A window full of buttons, each with a title of its own.
template<class Button>
std::unique_ptr<QWidget> makeWindow() {
    auto window = std::make_unique<QWidget>();
    window->resize(perRow * place.width(), buttonCount / perRow * place.height());
    for (int i = 0; i < buttonCount; ++i) {
        auto* const button = new Button(QStringLiteral("Button %1").arg(i), window.get());
        button->setGeometry(
            {QPoint(i % perRow * place.width(), i / perRow * place.height()), place});
    }
    return window;
}

/// Milliseconds from the change until every button has been painted again; the median.
template<class Change>
double restyleTime(Change change) {
    for (int i = 0; i < 2; ++i) {
        change(i);
        QCoreApplication::processEvents();
    }
    std::vector<double> samples;
    for (int i = 0; i < 9; ++i) {
        paints = 0;
        const auto start = Clock::now();
        change(i);
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        samples.push_back(seconds(Clock::now() - start) * 1e3);
        if (paints != buttonCount) {
            std::fprintf(stderr, "%d buttons were painted in place of %d\n", paints, buttonCount);
        }
    }
    return bench::median(samples);
}

void measureLookup() {
    using State = driftwood::StyledControlState;
    const driftwood::CheckBoxCellStyle style;
    // Disabled, so that no key matches well, and nearly all have to be tried.
    const State worst = State::default_ | State::disabled | State::focused | State::invalid;
    const void* volatile sink = nullptr;
    bench::figure("style_lookup_ns",
                  timeOf(15, 200'000, [&](int) { sink = style.image(worst).get(); }) * 1e9, "ns");
    (void)sink;
}

void measurePainting() {
    QImage target(200, 60, QImage::Format_ARGB32_Premultiplied);
    target.fill(Qt::black);
    QPainter painter(&target);
    const auto& bezel = *driftwood::resourceBundle().assets().image(QStringLiteral("dwk-button"));
    const platform::CellCanvas canvas{painter, Qt::white};
    bench::figure("nine_slice_us",
                  timeOf(15, 5'000,
                         [&](int) {
                             platform::paintCellImage(canvas, {{20, 20}, {120, 24}}, bezel, 1);
                         }) *
                      1e6,
                  "us");
    QPixmap plain(120, 24);
    plain.fill(QColor(80, 80, 90, 200));
    bench::figure("draw_pixmap_us",
                  timeOf(15, 5'000, [&](int) { painter.drawPixmap(20, 20, plain); }) * 1e6, "us");
}

/// A cell without a field of its own.
class PlainCell final : public platform::Cell {
    [[nodiscard]] core::Size cellSize() const override { return {10, 10}; }
    void drawInterior(const core::Rect&, const platform::CellCanvas&) const override {}
};

class PlainControl final : public platform::CellControl {
  public:
    explicit PlainControl(QWidget* parent) : CellControl(std::make_unique<PlainCell>(), parent) {}
};

void measureMemory() {
    QWidget window;
    const auto before = mallinfo2().uordblks;
    for (int i = 0; i < buttonCount; ++i) {
        new PlainControl(&window);
    }
    bench::figure("cell_control_bytes",
                  static_cast<double>(mallinfo2().uordblks - before) / buttonCount, "bytes");
}

void measureRestyling() {
    auto& style = StyledButtonCell::style();
    const driftwood::Color colors[] = {driftwood::makeColor(QColor(216, 214, 220)),
                                       driftwood::makeColor(QColor(63, 208, 201))};
    double own = 0;
    {
        const auto before = mallinfo2().uordblks;
        const auto window = makeWindow<Counted<StyledButton>>();
        const auto made = mallinfo2().uordblks;
        bench::figure("button_bytes", static_cast<double>(made - before) / buttonCount, "bytes");
        window->show();
        QCoreApplication::processEvents();
        bench::figure("painted_button_bytes",
                      static_cast<double>(mallinfo2().uordblks - before) / buttonCount, "bytes");
        own = restyleTime([&](int i) { style.setTextColor(colors[i % 2]); });
        bench::figure("restyle_5000_ms", own, "ms");
    }
    const auto window = makeWindow<Counted<QPushButton>>();
    const auto sheet = [](int i) {
        return QStringLiteral("QPushButton { color: %1; background: #3a3840; border: 1px solid "
                              "#211f27; border-radius: 3px; } QPushButton:pressed { background: "
                              "#18161d; }")
            .arg(i % 2 == 0 ? QStringLiteral("#d8d6dc") : QStringLiteral("#3fd0c9"));
    };
    window->setStyleSheet(sheet(0));
    window->show();
    QCoreApplication::processEvents();
    const double styleSheet = restyleTime([&](int i) { window->setStyleSheet(sheet(i)); });
    bench::figure("restyle_5000_style_sheet_ms", styleSheet, "ms");
    bench::figure("restyle_vs_stylesheet", styleSheet / own, "times");
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    platform::setAppearance(application, platform::Appearance::darkAqua);
    driftwood::installKitAssets();
    measureLookup();
    measurePainting();
    measureMemory();
    measureRestyling();
    return 0;
}
