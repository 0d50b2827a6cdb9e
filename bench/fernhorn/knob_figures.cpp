// The cost of showing a thousand knobs and dials another value each, beside plain widgets that
// paint a pixmap each, and beside painting the same pixmaps with one painter.

#include "bench/figure.hpp"
#include "fernhorn/dials/dial.hpp"
#include "fernhorn/dials/pictures.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "platform/ui/appearance.hpp"

#include <QApplication>
#include <QBackingStore>
#include <QPainter>
#include <QPixmap>

#include <chrono>
#include <memory>
#include <vector>

namespace {

using fernhorn::AudioParameter;
using Clock = std::chrono::steady_clock;

constexpr int count = 1000;
constexpr int perRow = 40;
constexpr int frames = 51;
constexpr int rounds = 60;
constexpr QSize knobSize(56, 64);

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

const fernhorn::FilmStrip& strip() {
    return fernhorn::FilmStrip::ofKit(QStringLiteral("knobs/chaos-dial-grey_"), frames);
}

QPixmap pixmapOfFrame(int index) {
    const auto* const asset = fernhorn::resourceBundle().assets().image(strip().frameName(index));
    return asset == nullptr ? QPixmap() : QPixmap::fromImage(asset->image(1));
}

void place(QWidget& widget, int i, QSize size) {
    widget.setGeometry({QPoint(i % perRow * size.width(), i / perRow * size.height()), size});
}

void show(QWidget& window, QSize each) {
    window.resize(perRow * each.width(), count / perRow * each.height());
    window.show();
    QCoreApplication::processEvents();
}

/// A window of plain widgets, with one pixmap each.
class PlainWindow final : public QWidget {
  public:
    explicit PlainWindow(const std::vector<QPixmap>& pixmaps) {
        for (int i = 0; i < count; ++i) {
            auto* const child = new Child(pixmaps[static_cast<std::size_t>(i % frames)], this);
            place(*child, i, knobSize);
            children_.push_back(child);
        }
        show(*this, knobSize);
    }

    double round() {
        const auto start = Clock::now();
        for (QWidget* const child : children_) {
            child->update();
        }
        QCoreApplication::processEvents();
        return milliseconds(Clock::now() - start);
    }

  private:
    static void show(QWidget& window, QSize each) { ::show(window, each); }

    class Child final : public QWidget {
      public:
        Child(const QPixmap& pixmap, QWidget* parent) : QWidget(parent), pixmap_(pixmap) {}

      protected:
        void paintEvent(QPaintEvent* /*event*/) override {
            QPainter painter(this);
            painter.drawPixmap(0, 0, pixmap_);
        }

      private:
        QPixmap pixmap_;
    };

    std::vector<QWidget*> children_;
};

/// A window of controls with a parameter each.
class ControlWindow final : public QWidget {
  public:
    using Make = QWidget* (*)(const std::shared_ptr<AudioParameter>&, QWidget&);

    ControlWindow(Make make, QSize each, fernhorn::ValueRange range) : each_(each), range_(range) {
        for (int i = 0; i < count; ++i) {
            parameters_.push_back(std::make_shared<AudioParameter>(
                static_cast<platform::AUParameterAddress>(i), "parameter", "Parameter",
                platform::AudioUnitParameterUnit::percent, range, range.lower,
                fernhorn::ValueIncrement::linear(), std::nullopt, std::nullopt, queue_));
            place(*make(parameters_.back(), *this), i, each);
        }
        ::show(*this, each);
        hashes_.resize(count);
    }

    /// Milliseconds from setting all parameters to another frame until all of it is painted.
    double round() {
        ++round_;
        const auto start = Clock::now();
        for (int i = 0; i < count; ++i) {
            const float position = static_cast<float>((i + round_) % frames) / (frames - 1);
            parameters_[static_cast<std::size_t>(i)]->setValue(
                range_.lower + position * (range_.upper - range_.lower),
                fernhorn::ParameterEditor::parameterObserver,
                fernhorn::ParameterEditorState::change);
        }
        queue_.drain();
        QCoreApplication::processEvents();
        const double time = milliseconds(Clock::now() - start);
        countChanges();
        return time;
    }

    /// How many controls did not look different after every round.
    [[nodiscard]] int unchanged() const { return unchanged_; }

  private:
    void countChanges() {
        const auto& pixels = *static_cast<const QImage*>(backingStore()->paintDevice());
        for (int i = 0; i < count; ++i) {
            const QRect rect(QPoint(i % perRow * each_.width(), i / perRow * each_.height()),
                             each_);
            std::size_t hash = 0;
            for (int y = rect.top(); y <= rect.bottom(); ++y) {
                const auto* const line = pixels.constScanLine(y) + rect.left() * 4;
                hash = qHashBits(line, static_cast<std::size_t>(rect.width()) * 4, hash);
            }
            auto& before = hashes_[static_cast<std::size_t>(i)];
            unchanged_ += hash == before ? 1 : 0;
            before = hash;
        }
    }

    core::MainQueue queue_;
    const QSize each_;
    const fernhorn::ValueRange range_;
    std::vector<std::shared_ptr<AudioParameter>> parameters_;
    std::vector<std::size_t> hashes_;
    int round_ = 0;
    int unchanged_ = 0;
};

double blitRound(QImage& target, const std::vector<QPixmap>& pixmaps, int round) {
    const auto start = Clock::now();
    QPainter painter(&target);
    painter.fillRect(target.rect(), QColor(40, 38, 48));
    for (int i = 0; i < count; ++i) {
        painter.drawPixmap(i % perRow * knobSize.width(), i / perRow * knobSize.height(),
                           pixmaps[static_cast<std::size_t>((i + round) % frames)]);
    }
    painter.end();
    return milliseconds(Clock::now() - start);
}

QWidget* makeKnob(const std::shared_ptr<AudioParameter>& parameter, QWidget& parent) {
    return new fernhorn::KnobControl(parameter, 6, 0.005F, frames,
                                     fernhorn::filmStripContent(strip()), &parent);
}

QWidget* makeDial(const std::shared_ptr<AudioParameter>& parameter, QWidget& parent) {
    return new fernhorn::ChaosDial(parameter, fernhorn::ModernDialColor::grey,
                                   {.valueColor = {0.85F, 0.84F, 0.86F, 1},
                                    .labelFontSize = 12,
                                    .valueFontSize = 14,
                                    .editingFontSize = 14,
                                    .showSuffix = true,
                                    .showName = false,
                                    .labelWidth = 56},
                                   nullptr, {}, &parent);
}

int check(const ControlWindow& window, const char* what) {
    if (window.unchanged() != 0) {
        std::fprintf(stderr, "%d times a %s looked as before\n", window.unchanged(), what);
        return 1;
    }
    return 0;
}

int measure() {
    std::vector<QPixmap> pixmaps;
    for (int i = 1; i <= frames; ++i) {
        pixmaps.push_back(pixmapOfFrame(i));
    }
    PlainWindow plain(pixmaps);
    ControlWindow knobs(makeKnob, knobSize, {0, 1});
    ControlWindow dials(makeDial, {56, 80}, {0, 100});
    QImage target(perRow * knobSize.width(), count / perRow * knobSize.height(),
                  QImage::Format_RGB32);
    std::vector<double> plainTimes;
    std::vector<double> knobTimes;
    std::vector<double> dialTimes;
    std::vector<double> blitTimes;
    for (int i = 0; i < rounds; ++i) { // by turns, so that the machine's moods meet all alike
        plainTimes.push_back(plain.round());
        knobTimes.push_back(knobs.round());
        dialTimes.push_back(dials.round());
        blitTimes.push_back(blitRound(target, pixmaps, i));
    }
    const double plainTime = bench::median(plainTimes);
    const double knobTime = bench::median(knobTimes);
    bench::figure("widgets_1000_frame_ms", plainTime, "ms");
    bench::figure("knobs_1000_frame_ms", knobTime, "ms");
    bench::figure("knobs_vs_widgets", knobTime / plainTime, "times");
    bench::figure("knobs_blit_ratio", knobTime / bench::median(blitTimes), "times");
    bench::figure("dials_1000_frame_ms", bench::median(dialTimes), "ms");
    bench::figure("dials_vs_widgets", bench::median(dialTimes) / plainTime, "times");
    return check(knobs, "knob") + check(dials, "dial");
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    platform::setAppearance(application, platform::Appearance::darkAqua);
    fernhorn::resourceBundle().assets().registerFonts();
    return measure();
}
