// Opening a menu of a thousand items by a key, from the press to its first paint, beside the
// toolkit's own in the same run.

#include "bench/figure.hpp"
#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "platform/controls/menu.hpp"
#include "platform/ui/appearance.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>

#include <chrono>
#include <functional>
#include <memory>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int itemCount = 1000;
constexpr int rounds = 15;

/// Opens a menu when Down is pressed, as a button does.
class Opener final : public QWidget {
  public:
    std::function<void()> open;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Down) {
            open();
        }
    }
};

/// Waits for the first paint of a menu.
class FirstPaint final : public QObject {
  public:
    explicit FirstPaint(QWidget& menu) { menu.installEventFilter(this); }
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

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

/// From the key press to the end of the first paint of a menu that has never been open.
double openingTime(Opener& opener, const std::function<std::unique_ptr<QMenu>()>& make,
                   const std::function<void(QMenu&)>& popUp) {
    const std::unique_ptr<QMenu> menu = make();
    opener.open = [&] { popUp(*menu); };
    FirstPaint paint(*menu);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, {});
    const auto start = Clock::now();
    QCoreApplication::sendEvent(&opener, &press);
    while (!paint.isThere()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    const double time = milliseconds(Clock::now() - start);
    menu->hide();
    QCoreApplication::processEvents();
    return time;
}

QString titleOf(int index) {
    return QStringLiteral("Preset %1").arg(index);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    platform::setAppearance(application, platform::Appearance::darkAqua);
    driftwood::resourceBundle().assets().registerFonts();
    Opener opener;
    opener.resize(200, 60);
    opener.show();
    QCoreApplication::processEvents();

    std::vector<double> ours;
    std::vector<double> stock;
    for (int round = 0; round < rounds; ++round) { // in turn: the machine may be busy
        ours.push_back(openingTime(
            opener,
            [] {
                auto menu = std::make_unique<platform::Menu>();
                for (int i = 0; i < itemCount; ++i) {
                    menu->addItem(titleOf(i));
                }
                return menu;
            },
            [&](QMenu& menu) {
                static_cast<platform::Menu&>(menu).popUpBelow(opener, Qt::AlignLeading, 4,
                                                              platform::MenuOpenedBy::key);
            }));
        stock.push_back(openingTime(
            opener,
            [] {
                auto menu = std::make_unique<QMenu>();
                for (int i = 0; i < itemCount; ++i) {
                    menu->addAction(titleOf(i));
                }
                return menu;
            },
            [&](QMenu& menu) { menu.popup(opener.mapToGlobal(QPoint(0, opener.height()))); }));
    }
    bench::figure("menu_open_1000_ms", bench::median(ours), "ms");
    bench::figure("menu_open_1000_ratio", bench::median(ours) / bench::median(stock),
                  "of the toolkit's own menu (≤ 1.0)");
    return 0;
}
