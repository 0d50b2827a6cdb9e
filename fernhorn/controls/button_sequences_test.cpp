#include "fernhorn/controls/chaos_toggle_button.hpp"
#include "fernhorn/controls/chaos_toggle_button_narrow.hpp"
#include "fernhorn/controls/left_right_arrow_button.hpp"
#include "fernhorn/controls/mode_toggle_button.hpp"
#include "fernhorn/controls/parameter_hold_button.hpp"
#include "fernhorn/controls/toggle_button.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/model/test_parameter.hpp"

#include <QApplication>
#include <QCloseEvent>
#include <QFocusEvent>
#include <QMouseEvent>

#include <gtest/gtest.h>

#include <random>

namespace fernhorn {
namespace {

/// A million with LARKVOX_LONG_TESTS set.
int sequences() {
    return qEnvironmentVariableIsSet("LARKVOX_LONG_TESTS") ? 1'000'000 : 4'000;
}

constexpr int parameterCount = 3;
constexpr QSizeF size(40, 20);

/// Counts open touches of one parameter; none may be opened twice or closed before.
struct Touches {
    int open = 0;
    int opened = 0;
    bool isPaired = true;
};

/// A window whose buttons get whatever comes, in any order.
class Chaos {
  public:
    explicit Chaos(unsigned seed) : random_(seed) {
        for (int i = 0; i < parameterCount; ++i) {
            parameters_[i] = TestParameter{
                .address = static_cast<platform::AUParameterAddress>(i),
                .range = {0, 3}}.on(queue_);
            parameters_[i]->auParameter()->addParameterAutomationObserver(
                [&touches = touches_[i]](const auto& event) {
                    const int type = static_cast<int>(event.eventType);
                    touches.open += type == 1 ? 1 : type == 2 ? -1 : 0;
                    touches.opened += type == 1;
                    touches.isPaired = touches.isPaired && touches.open >= 0 && touches.open <= 2;
                });
        }
        window_.resize(200, 100);
        window_.show();
    }

    /// Events on new buttons until they are gone; true when all is closed then.
    bool run() {
        makeButtons();
        const int length = pick(24);
        for (int i = 0; i < length; ++i) {
            step();
        }
        for (QWidget* const button : window_.findChildren<PressButton*>()) {
            delete button;
        }
        window_.setEnabled(true);
        queue_.drain();
        bool isClosed = true;
        for (const Touches& one : touches_) {
            isClosed = isClosed && one.isPaired && one.open == 0;
        }
        return isClosed;
    }

    [[nodiscard]] int opened() const {
        int sum = 0;
        for (const Touches& one : touches_) {
            sum += one.opened;
        }
        return sum;
    }

  private:
    int pick(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

    void makeButtons() {
        const auto& images = resourceBundle().assets();
        const auto pad = images.image(QStringLiteral("hold-pad"));
        // Of two buttons of one parameter both may be pressed, by mouse and by key.
        const auto any = [&] { return parameters_[pick(parameterCount)]; };
        switch (pick(6)) {
        case 0:
            add(new ChaosToggleButton(any(), 1, ChaosButtonColor::yellow, size, &window_));
            break;
        case 1:
            add(new ModeToggleButton(any(), 2, ToggleButtonStyle::retro, 12, {}, size, &window_));
            break;
        case 2:
            add(new ToggleButton(any(), {}, 12, {}, size, &window_));
            break;
        case 3:
            add(new LeftRightArrowButton(any(), 1, size, &window_));
            break;
        case 4:
            add(new ChaosToggleButtonNarrow(any(), {}, size, &window_));
            break;
        default:
            break;
        }
        add(new ParameterHoldButton(any(), pad, pad, &window_));
    }

    void add(PressButton* button) {
        button->move(pick(100), pick(60));
        button->show();
    }

    void mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
        const QPointF point(pick(60) - 10, pick(40) - 10);
        QMouseEvent event(type, point, point, point, button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(target(), &event);
    }
    void key(QEvent::Type type) {
        constexpr Qt::Key keys[] = {Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Down};
        QKeyEvent event(type, keys[pick(4)], pick(8) == 0 ? Qt::ControlModifier : Qt::NoModifier,
                        {}, pick(8) == 0);
        QCoreApplication::sendEvent(target(), &event);
    }
    void send(QEvent event) { QCoreApplication::sendEvent(target(), &event); }
    PressButton* target() {
        const auto all = window_.findChildren<PressButton*>();
        return all[pick(static_cast<int>(all.size()))];
    }

    void step() {
        if (window_.findChild<PressButton*>() == nullptr) {
            return;
        }
        const auto button = pick(4) == 0 ? Qt::RightButton : Qt::LeftButton;
        switch (pick(16)) {
        case 0:
        case 1:
        case 2:
            mouse(QEvent::MouseButtonPress, button, button);
            break;
        case 3:
            mouse(QEvent::MouseButtonDblClick, button, button);
            break;
        case 4:
        case 5:
            mouse(QEvent::MouseButtonRelease, button, Qt::NoButton);
            break;
        case 6:
            mouse(QEvent::MouseMove, Qt::NoButton, pick(3) == 0 ? Qt::NoButton : Qt::LeftButton);
            break;
        case 7:
        case 8:
            key(QEvent::KeyPress);
            break;
        case 9:
            key(QEvent::KeyRelease);
            break;
        case 10: {
            QFocusEvent event(pick(2) == 0 ? QEvent::FocusIn : QEvent::FocusOut);
            QCoreApplication::sendEvent(target(), &event);
            break;
        }
        case 11:
            send(QEvent(pick(2) == 0 ? QEvent::WindowDeactivate : QEvent::UngrabMouse));
            break;
        case 12:
            (pick(2) == 0 ? static_cast<QWidget*>(target()) : &window_)->setEnabled(pick(2) == 0);
            break;
        case 13:
            target()->setVisible(pick(2) == 0);
            break;
        case 14:
            if (pick(4) == 0) {
                delete target();
            } else if (pick(8) == 0) {
                window_.close();
                window_.show();
            }
            break;
        default:
            parameters_[pick(parameterCount)]->setValue(static_cast<float>(pick(4)), fromUnit,
                                                        change);
            queue_.drain();
            break;
        }
    }

    std::mt19937 random_;
    core::MainQueue queue_;
    std::shared_ptr<AudioParameter> parameters_[parameterCount];
    Touches touches_[parameterCount];
    QWidget window_;
};

TEST(ButtonSequences, NeverLeaveATouchOpen) {
    Chaos chaos(20240611);
    const int count = sequences();
    for (int i = 0; i < count; ++i) {
        ASSERT_TRUE(chaos.run()) << "sequence " << i;
    }
    EXPECT_GT(chaos.opened(), count / 2); // and they do open some
}

} // namespace
} // namespace fernhorn
