// Whatever comes to sliders, in any order: a drag that has started is completed once, and values
// stay in their range.

#include "driftwood/controls/styled_slider.hpp"
#include "driftwood/declarative/drift_slider.hpp"

#include <QApplication>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <random>
#include <utility>

namespace driftwood {
namespace {

/// A million with LARKVOX_LONG_TESTS set.
int sequences() {
    return qEnvironmentVariableIsSet("LARKVOX_LONG_TESTS") ? 1'000'000 : 5'000;
}

/// What the callbacks of a slider have told.
struct Ledger {
    double minimum = 0, maximum = 100;
    bool isOpen = false;
    int drags = 0;
    std::string faults;
    QPointer<QWidget> slider; // null as soon as somebody has taken it away
    bool mayGo = true;        // the toolkit does not survive it in the midst of hiding a widget

    void start(double value) {
        faults += isOpen ? "started twice; " : "";
        isOpen = true;
        ++drags;
        check(value);
    }
    void go(double value) {
        faults += isOpen ? "" : "went on without a start; ";
        check(value);
    }
    void complete(double value) {
        faults += isOpen ? "" : "completed without a start; ";
        isOpen = false;
        check(value);
    }
    void check(double value) {
        faults += value >= minimum && value <= maximum ? "" : "left its range; ";
    }
};

/// A window with one slider, which gets whatever comes.
class Disorder {
  public:
    explicit Disorder(unsigned seed) : random_(seed) {
        window_.resize(160, 160);
        window_.show();
    }

    /// Events on a new slider until it is gone; what went wrong.
    std::string run(bool isDrift) {
        ledger_ = std::make_shared<Ledger>();
        isDrift ? addDrift() : addStyled();
        ledger_->slider = slider_;
        slider_->show();
        for (int i = pick(24); i >= 0 && ledger_->slider != nullptr; --i) {
            event();
        }
        delete std::exchange(ledger_->slider, nullptr).data();
        drags_ += ledger_->drags;
        return ledger_->faults + (ledger_->isOpen ? "still open" : "");
    }
    [[nodiscard]] int drags() const { return drags_; }

  private:
    int pick(int below) { return std::uniform_int_distribution(0, below - 1)(random_); }

    /// A callback of the slider; now and then it takes the slider away.
    auto telling(void (Ledger::*what)(double)) {
        const int deadly = pick(12);
        return [ledger = ledger_, what, deadly](double value) {
            (*ledger.*what)(value);
            if (deadly == 0 && ledger->mayGo) {
                delete std::exchange(ledger->slider, nullptr).data();
            } else if (deadly == 1 && ledger->slider != nullptr) {
                ledger->mayGo = false;
                ledger->slider->setEnabled(false);
                ledger->mayGo = true;
            }
        };
    }

    void addStyled() {
        auto* const slider = new StyledScrollableSlider(static_cast<SliderKind>(pick(3)), &window_);
        slider_ = target_ = slider;
        slider->setRange(ledger_->minimum, ledger_->maximum);
        slider->setGeometry(0, 0, 10 + pick(150), 10 + pick(150));
        slider->onSlideStarted = telling(&Ledger::start);
        slider->onSlideOngoing = telling(&Ledger::go);
        slider->onSlideComplete = telling(&Ledger::complete);
        change_ = [this, slider] {
            ledger_->minimum = pick(50);
            ledger_->maximum = ledger_->minimum + pick(50);
            slider->setRange(ledger_->minimum, ledger_->maximum);
            ledger_->check(slider->doubleValue());
        };
    }

    void addDrift() {
        model_ = makeModel();
        auto* const slider = new DriftSlider(model_, nullptr, nullptr, &window_);
        slider_ = slider;
        target_ = &slider->track();
        slider->resize(40 + pick(120), 24);
        listen();
        change_ = [this, slider] {
            if (pick(2) == 0) {
                model_->value.set(std::nullopt); // the objects disagree again
            } else {
                slider->setModel(model_);
            }
        };
    }
    std::shared_ptr<DriftSliderModel> makeModel() {
        std::vector<double> starts;
        for (int i = pick(8); i > 0; --i) {
            starts.push_back(pick(3) * 50);
        }
        return std::make_shared<DriftSliderModel>(std::move(starts), 40, 0, 100, 1 + pick(30),
                                                  SliderIconClickBehaviour::increment);
    }
    void listen() {
        model_->onSlideStarted = telling(&Ledger::start);
        model_->onSlideOngoing = telling(&Ledger::go);
        // Keys complete by themselves: only what a drag has begun counts.
        const auto tell = telling(&Ledger::complete);
        model_->onSlideComplete = [ledger = ledger_, tell](double value) {
            ledger->isOpen ? tell(value) : ledger->check(value);
        };
    }

    void mouse(QEvent::Type type) {
        const QPointF at(pick(200) - 20, pick(60) - 20);
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton
                                       : pick(8)                 ? Qt::LeftButton
                                                                 : Qt::RightButton;
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease || pick(10) == 0
                                          ? Qt::MouseButtons()
                                          : Qt::MouseButtons(Qt::LeftButton);
        constexpr Qt::KeyboardModifiers modifiers[] = {Qt::NoModifier, Qt::NoModifier,
                                                       Qt::ShiftModifier, Qt::AltModifier};
        QMouseEvent event(type, at, at, button, held, modifiers[pick(4)]);
        QCoreApplication::sendEvent(target_, &event);
    }

    void event() {
        switch (pick(14)) {
        case 0:
        case 1:
        case 2:
            return mouse(QEvent::MouseButtonPress);
        case 3:
        case 4:
        case 5:
            return mouse(QEvent::MouseMove);
        case 6:
        case 7:
            return mouse(QEvent::MouseButtonRelease);
        case 8: {
            constexpr Qt::Key keys[] = {Qt::Key_Left, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_Delete};
            QKeyEvent key(QEvent::KeyPress, keys[pick(4)], {});
            QCoreApplication::sendEvent(target_, &key);
            return;
        }
        case 9: {
            QWheelEvent wheel({}, {}, {}, QPoint(0, pick(2) ? 120 : -480), {}, {},
                              Qt::NoScrollPhase, pick(2) != 0);
            QCoreApplication::sendEvent(target_, &wheel);
            return;
        }
        case 10:
        case 11:
            ledger_->mayGo = false;
            pick(2) == 0 ? slider_->setEnabled(pick(2) != 0) : slider_->setVisible(pick(2) != 0);
            ledger_->mayGo = true;
            return;
        case 12: {
            QFocusEvent out(QEvent::FocusOut, pick(2) ? Qt::PopupFocusReason : Qt::TabFocusReason);
            QCoreApplication::sendEvent(target_, &out);
            return;
        }
        default:
            return change_();
        }
    }

    std::mt19937 random_;
    QWidget window_;
    QWidget* slider_ = nullptr;
    QWidget* target_ = nullptr; // the part that gets the events
    std::shared_ptr<DriftSliderModel> model_;
    std::shared_ptr<Ledger> ledger_;
    std::function<void()> change_;
    int drags_ = 0;
};

TEST(SliderSequences, EndEveryDragOnceAndKeepToTheRange) {
    Disorder disorder(20);
    for (int i = 0; i < sequences(); ++i) {
        ASSERT_EQ(disorder.run(i % 2 == 0), "") << "sequence " << i;
    }
    EXPECT_GT(disorder.drags(), sequences() / 4) << "there was something to see";
}

} // namespace
} // namespace driftwood
