// Opening a pop-up button of a thousand items by a press, to its first paint, beside the toolkit's
// combo box in the same run.

#include "bench/figure.hpp"
#include "driftwood/controls/styled_pop_up_button.hpp"
#include "platform/ui/appearance.hpp"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QMouseEvent>

#include <chrono>
#include <functional>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int itemCount = 1000;
constexpr int rounds = 15;

/// Waits for the first paint of a widget.
class FirstPaint final : public QObject {
  public:
    explicit FirstPaint(QWidget& widget) { widget.installEventFilter(this); }
    [[nodiscard]] bool isThere() const { return isThere_; }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint && !isThere_) {
            object->removeEventFilter(this);
            object->event(event);
            isThere_ = true;
            return true;
        }
        return false;
    }

  private:
    bool isThere_ = false;
};

/// From the press of a control that has never been open to the end of the first paint of what it
/// opens.
double openingTime(QWidget& control, QWidget& opened) {
    FirstPaint paint(opened);
    const QPointF at(20, 10);
    QMouseEvent press(QEvent::MouseButtonPress, at, control.mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, {});
    const auto start = Clock::now();
    QCoreApplication::sendEvent(&control, &press);
    while (!paint.isThere()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

template<class Control>
void fill(Control& control) {
    for (int i = 0; i < itemCount; ++i) {
        control.addItem(QStringLiteral("Preset %1").arg(i));
    }
    control.setGeometry(10, 10, 160, 24);
    control.show();
    QCoreApplication::processEvents();
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    platform::setAppearance(application, platform::Appearance::darkAqua);
    QWidget window;
    window.resize(300, 60);
    window.show();
    QCoreApplication::processEvents();
    for (const bool isInTheMiddle : {false, true}) { // of the items, the selected one
        std::vector<double> ours;
        std::vector<double> stock;
        const int selected = isInTheMiddle ? itemCount / 2 : 0;
        for (int round = 0; round < rounds; ++round) { // in turn: the machine may be busy
            {
                driftwood::StyledPopUpButton button(&window);
                fill(button);
                button.selectItemAt(selected);
                ours.push_back(openingTime(button, button.menu()));
                button.menu().hide();
                QCoreApplication::processEvents();
            }
            QComboBox box(&window);
            fill(box);
            box.setCurrentIndex(selected);
            stock.push_back(openingTime(box, *box.view()->viewport()));
            box.hidePopup();
            QCoreApplication::processEvents();
        }
        const double ratio = bench::median(ours) / bench::median(stock);
        if (isInTheMiddle) {
            bench::figure("popup_open_1000_middle_ratio", ratio, "with the 500th item selected");
        } else {
            bench::figure("popup_open_1000_ms", bench::median(ours), "ms");
            bench::figure("popup_open_1000_ratio", ratio, "of the toolkit's combo box (≤ 1.0)");
        }
    }
    return 0;
}
