#include "fernhorn/controls/chaos_dial.hpp"
#include "fernhorn/controls/tiny_dial.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/model/test_parameter.hpp"

#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMouseEvent>
#include <QPointer>
#include <QTimerEvent>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <random>

namespace fernhorn {
namespace {

/// A million with LARKVOX_LONG_TESTS set.
int sequences() {
    return qEnvironmentVariableIsSet("LARKVOX_LONG_TESTS") ? 1'000'000 : 3'000;
}

/// A window whose knobs get whatever comes, in any order.
class Disorder {
  public:
    explicit Disorder(unsigned seed) : random_(seed) {
        QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false")); // on tool tips
        window_.resize(200, 200);
        window_.show();
    }

    /// Events on a new knob until it is gone; true when its touches are paired, and no two of them
    /// overlap.
    bool run() {
        const auto parameter =
            TestParameter{.units = pick(2) == 0 ? platform::AudioUnitParameterUnit::indexed
                                                : platform::AudioUnitParameterUnit::generic,
                          .range = {0, 4},
                          .defaultValue = 2}
                .on(queue_);
        int open = 0;
        bool isPaired = true;
        parameter->auParameter()->addParameterAutomationObserver([&](const auto& event) {
            const int type = static_cast<int>(event.eventType);
            open += type == 1 ? 1 : type == 2 ? -1 : 0;
            opened_ += type == 1;
            isPaired = isPaired && (open == 0 || open == 1);
        });
        knob_ = makeKnob(parameter);
        knob_->show();
        // Others may see an edit, and take the knob away.
        const int deadly = pick(40);
        const auto observer = parameter->observeIsBeingInteractivelyEdited([&](bool isEdited) {
            if (deadly == (isEdited ? 0 : 1) && isInput_) {
                isInput_ = false;
                delete knob_;
            }
        });
        for (int i = pick(24); i > 0 && knob_ != nullptr; --i) {
            step(*parameter);
        }
        delete knob_;
        window_.setEnabled(true);
        queue_.drain();
        return isPaired && open == 0 && !parameter->isBeingInteractivelyEdited();
    }

    [[nodiscard]] int opened() const { return opened_; }

  private:
    int pick(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

    KnobControl* makeKnob(const std::shared_ptr<AudioParameter>& parameter) {
        const LabelDisplayOptions options{{1, 1, 1, 1}, 10, 10, 10, true, false, 50};
        switch (pick(4)) {
        case 0:
            return new ChaosDial(parameter, ModernDialColor::grey, options, nullptr, {}, &window_);
        case 1:
            return new KnobControl(
                parameter, 0, 0.01F, 5, [](QPainter&, const QRectF&, int) {}, &window_);
        default:
            return new TinyDial(parameter, options, nullptr, {}, &window_);
        }
    }

    void send(QEvent& event) {
        if (knob_ != nullptr) {
            isInput_ = event.isInputEvent(); // no widget may go while it is being hidden
            QCoreApplication::sendEvent(knob_, &event);
            isInput_ = false;
        }
    }
    void send(QEvent::Type type) {
        QEvent event(type);
        send(event);
    }
    void mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
        const QPointF point(pick(60) - 10, pick(80) - 20);
        const auto modifiers = pick(4) == 0 ? Qt::AltModifier : Qt::NoModifier;
        QMouseEvent event(type, point, point, point, button, held, modifiers);
        send(event);
    }
    void wheel() {
        QWheelEvent event({5, 5}, {5, 5}, {}, {0, pick(400) - 200}, Qt::NoButton, Qt::NoModifier,
                          pick(5) == 0 ? Qt::ScrollMomentum : Qt::NoScrollPhase, pick(2) == 0);
        send(event);
    }
    void key() {
        constexpr Qt::Key keys[] = {Qt::Key_Up,     Qt::Key_PageDown, Qt::Key_End,
                                    Qt::Key_Delete, Qt::Key_Return,   Qt::Key_Escape};
        auto* const field = knob_->findChild<QLineEdit*>();
        QKeyEvent event(QEvent::KeyPress, keys[pick(6)], Qt::NoModifier);
        QCoreApplication::sendEvent(field != nullptr ? static_cast<QObject*>(field) : knob_,
                                    &event);
    }

    void step(AudioParameter& parameter) {
        const auto button = pick(4) == 0 ? Qt::RightButton : Qt::LeftButton;
        switch (pick(16)) {
        case 0:
        case 1:
        case 2:
            return mouse(QEvent::MouseButtonPress, button, button);
        case 3:
            return mouse(QEvent::MouseButtonDblClick, button, button);
        case 4:
        case 5:
        case 6:
            return mouse(QEvent::MouseMove, Qt::NoButton,
                         pick(6) == 0 ? Qt::NoButton : Qt::LeftButton);
        case 7:
            return mouse(QEvent::MouseButtonRelease, button, Qt::NoButton);
        case 8:
        case 9:
            return wheel();
        case 10:
            return key();
        case 11: {
            QFocusEvent event(pick(2) == 0 ? QEvent::FocusIn : QEvent::FocusOut);
            return send(event);
        }
        case 12:
            return send(pick(2) == 0 ? QEvent::WindowDeactivate : QEvent::UngrabMouse);
        case 13:
            return (pick(2) == 0 ? static_cast<QWidget*>(knob_) : &window_)
                ->setEnabled(pick(2) == 0);
        case 14:
            if (pick(4) == 0) {
                window_.close();
                window_.show();
            } else if (knob_ != nullptr) {
                knob_->setVisible(pick(2) == 0);
            }
            return;
        default:
            parameter.setValue(static_cast<float>(pick(5)), fromUnit, change);
            queue_.drain();
            return;
        }
    }

    std::mt19937 random_;
    core::MainQueue queue_;
    QWidget window_;
    QPointer<KnobControl> knob_;
    int opened_ = 0;
    bool isInput_ = false;
};

TEST(DialSequences, NeverLeaveATouchOpen) {
    Disorder disorder(20240613);
    const int count = sequences();
    for (int i = 0; i < count; ++i) {
        ASSERT_TRUE(disorder.run()) << "sequence " << i;
        if (i % 256 == 0) {
            QCoreApplication::processEvents(); // what has gathered about the window
        }
    }
    EXPECT_GT(disorder.opened(), count); // and they do open some
}

} // namespace
} // namespace fernhorn
