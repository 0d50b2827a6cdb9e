// The cost of the kit's text fields and labels beside the toolkit's own under its Fusion style, in
// the same run: making them, painting them, their memory, and a key until its character is there.

#include "bench/figure.hpp"
#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/text/validating_text_field.hpp"
#include "platform/ui/appearance.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include <chrono>
#include <malloc.h>
#include <memory>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int fieldCount = 400;
constexpr int labelCount = 5000;
constexpr int perRow = 10;
constexpr QSize place(120, 24);
constexpr int rounds = 21;

double microseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::micro>(duration).count();
}

template<class Field>
void setText(Field& field, const QString& text) {
    if constexpr (requires { field.setStringValue(text); }) {
        field.setStringValue(text);
    } else {
        field.setText(text);
    }
}

/// A window full of fields, each with a text of its own.
template<class Field>
std::unique_ptr<QWidget> makeWindow(int count) {
    auto window = std::make_unique<QWidget>();
    window->resize(perRow * place.width(), count / perRow * place.height());
    for (int i = 0; i < count; ++i) {
        auto* const field = new Field;
        field->setParent(window.get());
        setText(*field, QStringLiteral("Preset %1").arg(i));
        field->setGeometry(
            {QPoint(i % perRow * place.width(), i / perRow * place.height()), place});
    }
    return window;
}

template<class Field>
double makingTime() {
    QWidget parent;
    const auto start = Clock::now();
    for (int i = 0; i < fieldCount; ++i) {
        new Field(&parent);
    }
    return microseconds(Clock::now() - start) / fieldCount;
}

double paintingTime(QWidget& window) {
    const auto start = Clock::now();
    window.repaint();
    return microseconds(Clock::now() - start) / fieldCount;
}

void measureMaking() {
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = 0; round < rounds; ++round) { // in turn: the machine may be busy
        ours.push_back(makingTime<driftwood::StyledTextField>());
        theirs.push_back(makingTime<QLineEdit>());
    }
    bench::figure("field_make_us", bench::median(ours), "us");
    bench::figure("field_make_ratio", bench::median(ours) / bench::median(theirs),
                  "of the toolkit's line edit (≤ 1.1)");
}

void measurePainting() {
    const auto ours = makeWindow<driftwood::StyledTextField>(fieldCount);
    const auto theirs = makeWindow<QLineEdit>(fieldCount);
    std::vector<double> own;
    std::vector<double> toolkits;
    ours->show();
    theirs->show();
    QCoreApplication::processEvents();
    for (int round = 0; round < rounds; ++round) {
        own.push_back(paintingTime(*ours));
        toolkits.push_back(paintingTime(*theirs));
    }
    bench::figure("field_paint_us", bench::median(own), "us");
    bench::figure("field_paint_ratio", bench::median(own) / bench::median(toolkits),
                  "of the toolkit's line edit (≤ 0.7)");
}

struct Memory {
    double made = 0;
    double painted = 0;
};

template<class Label>
Memory memoryOf() {
    const auto before = mallinfo2().uordblks;
    const auto window = makeWindow<Label>(labelCount);
    const auto made = mallinfo2().uordblks;
    window->show();
    QCoreApplication::processEvents();
    return {static_cast<double>(made - before) / labelCount,
            static_cast<double>(mallinfo2().uordblks - before) / labelCount};
}

void measureMemory() {
    static_cast<void>(memoryOf<driftwood::StyledTextLabel>()); // what is shared is made
    static_cast<void>(memoryOf<QLabel>());
    const Memory ours = memoryOf<driftwood::StyledTextLabel>();
    const Memory theirs = memoryOf<QLabel>();
    bench::figure("label_bytes", ours.made, "bytes");
    bench::figure("label_bytes_ratio", ours.made / theirs.made, "of the toolkit's label (≤ 1.1)");
    bench::figure("painted_label_bytes", ours.painted, "bytes");
    bench::figure("painted_label_bytes_ratio", ours.painted / theirs.painted,
                  "of the toolkit's label");
}

/// Counts the paints of what shows the typed text.
class PaintWatch final : public QObject {
  public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
    int paints = 0;
    bool eventFilter(QObject* /*object*/, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

double typingTime(QWidget& field, PaintWatch& watch, char character) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_A + (character - 'a'), {},
                    QString(QLatin1Char(character)));
    const int before = watch.paints;
    const auto start = Clock::now();
    QCoreApplication::sendEvent(&field, &press);
    while (watch.paints == before) {
        QCoreApplication::processEvents();
    }
    return microseconds(Clock::now() - start);
}

void measureTyping() {
    QWidget window;
    window.resize(300, 100);
    driftwood::ValidatingTextField ours(&window);
    ours.setFormatter(std::make_shared<driftwood::ConstantNameFormatter>());
    ours.setGeometry(10, 10, 200, 24);
    QLineEdit theirs(&window);
    theirs.setGeometry(10, 50, 200, 24);
    window.show();
    QApplication::setActiveWindow(&window);
    QCoreApplication::processEvents();
    std::vector<double> own;
    std::vector<double> toolkits;
    PaintWatch theirPaints(theirs);
    for (int round = 0; round < rounds; ++round) {
        const auto type = [](QWidget& field, PaintWatch& watch, std::vector<double>& times) {
            field.setFocus();
            QCoreApplication::processEvents();
            for (int i = 0; i < 20; ++i) {
                times.push_back(typingTime(field, watch, static_cast<char>('a' + i)));
            }
        };
        ours.setFocus();
        PaintWatch ourPaints(ours.fieldEditor());
        type(ours, ourPaints, own);
        ours.fieldEditor().clear();
        type(theirs, theirPaints, toolkits);
        theirs.clear();
    }
    bench::figure("type_latency_us", bench::median(own), "us");
    bench::figure("type_latency_ratio", bench::median(own) / bench::median(toolkits),
                  "of the toolkit's line edit (≤ 1.1)");
}

} // namespace

int main(int argc, char** argv) {
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication application(argc, argv);
    platform::setAppearance(application, platform::Appearance::darkAqua);
    driftwood::installKitAssets();
    measureMaking();
    measurePainting();
    measureMemory();
    measureTyping();
    return 0;
}
