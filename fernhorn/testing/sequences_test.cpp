// Whatever comes to knobs and buttons, in any order, no touch stays open.

#include "fernhorn/buttons/parameter_buttons.hpp"
#include "fernhorn/dials/dial.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/testing/test_parameter.hpp"

#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMouseEvent>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <random>

namespace fernhorn {
namespace {

/// A million with LARKVOX_LONG_TESTS set.
int sequences() {
    return qEnvironmentVariableIsSet("LARKVOX_LONG_TESTS") ? 1'000'000 : 3'000;
}

enum class Of { knobs, buttons };

/// A window whose controls get whatever comes.
class Disorder {
  public:
    Disorder(Of kind, unsigned seed) : kind_(kind), random_(seed) {
        QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false")); // on tool tips
        window_.resize(200, 200);
        window_.show();
    }

    /// Events on new controls until they are gone; true when the touches are paired and closed.
    bool run() {
        const bool isIndexed = pick(2) == 0;
        const auto parameter =
            TestParameter{.units = isIndexed ? platform::AudioUnitParameterUnit::indexed
                                             : platform::AudioUnitParameterUnit::generic,
                          .range = {0, 4},
                          .defaultValue = 2}
                .on(queue_);
        int most = 1;
        int open = 0;
        bool isPaired = true;
        parameter->auParameter()->addParameterAutomationObserver([&](const auto& event) {
            const int type = static_cast<int>(event.eventType);
            open += type == 1 ? 1 : type == 2 ? -1 : 0;
            opened_ += type == 1;
            isPaired = isPaired && open >= 0 && open <= most;
        });
        kind_ == Of::knobs ? addKnob(parameter) : addButtons(parameter);
        // Of two buttons of one parameter both may be pressed, by mouse and by key.
        most = static_cast<int>(controls().size());
        // Others may see an edit, and take the control away.
        const int deadly = pick(40);
        const auto observer = parameter->observeIsBeingInteractivelyEdited([&](bool isEdited) {
            if (deadly == (isEdited ? 0 : 1) && addressed_ != nullptr) {
                delete std::exchange(addressed_, nullptr);
            }
        });
        for (int i = pick(24); i > 0 && !controls().isEmpty(); --i) {
            step(*parameter);
        }
        qDeleteAll(controls());
        window_.setEnabled(true);
        queue_.drain();
        return isPaired && open == 0 && !parameter->isBeingInteractivelyEdited();
    }

    [[nodiscard]] int opened() const { return opened_; }

  private:
    int pick(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

    QList<QWidget*> controls() {
        return window_.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    }
    QWidget* target() {
        const auto all = controls();
        return all[pick(static_cast<int>(all.size()))];
    }

    void addKnob(const std::shared_ptr<AudioParameter>& parameter) {
        const LabelDisplayOptions options{{1, 1, 1, 1}, 10, 10, 10, true, false, 50};
        switch (pick(4)) {
        case 0:
            return add(new ChaosDial(parameter, ModernDialColor::grey, options));
        case 1:
            return add(new KnobControl(parameter, 0, 0.01F, 5, [](auto&, const auto&, int) {}));
        default:
            return add(new TinyDial(parameter, options));
        }
    }

    void addButtons(const std::shared_ptr<AudioParameter>& parameter) {
        constexpr QSizeF size(40, 20);
        const auto* const pad = resourceBundle().assets().image(QStringLiteral("hold-pad"));
        add(new ParameterHoldButton(parameter, pad, pad));
        switch (pick(6)) {
        case 0:
            return add(new ChaosToggleButton(parameter, 1, ChaosButtonColor::yellow, size));
        case 1:
            return add(new ModeToggleButton(parameter, 2, ToggleButtonStyle::retro, 12, {}, size));
        case 2:
            return add(new ToggleButton(parameter, {}, 12, {}, size));
        case 3:
            return add(new LeftRightArrowButton(parameter, 1, size));
        case 4:
            return add(new ChaosToggleButtonNarrow(parameter, {}, size));
        default:
            return;
        }
    }

    void add(QWidget* control) {
        control->setParent(&window_);
        control->move(pick(100), pick(60));
        control->show();
    }

    void send(QWidget* control, QEvent& event) {
        addressed_ = event.isInputEvent() ? control : nullptr; // none may go while being hidden
        QCoreApplication::sendEvent(control, &event);
        addressed_ = nullptr;
    }
    void mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
        const QPointF point(pick(60) - 10, pick(80) - 20);
        const auto modifiers = pick(4) == 0 ? Qt::AltModifier : Qt::NoModifier;
        QMouseEvent event(type, point, point, point, button, held, modifiers);
        send(target(), event);
    }
    void wheel() {
        QWheelEvent event({5, 5}, {5, 5}, {}, {0, pick(400) - 200}, Qt::NoButton, Qt::NoModifier,
                          pick(5) == 0 ? Qt::ScrollMomentum : Qt::NoScrollPhase, pick(2) == 0);
        send(target(), event);
    }
    void key(QEvent::Type type) {
        constexpr Qt::Key keys[] = {Qt::Key_Up,     Qt::Key_PageDown, Qt::Key_End,
                                    Qt::Key_Down,   Qt::Key_Delete,   Qt::Key_Return,
                                    Qt::Key_Escape, Qt::Key_Space};
        QKeyEvent event(type, keys[pick(8)], pick(8) == 0 ? Qt::ControlModifier : Qt::NoModifier,
                        {}, pick(8) == 0);
        QWidget* const control = target();
        auto* const field = control->findChild<QLineEdit*>();
        if (field != nullptr) {
            QCoreApplication::sendEvent(field, &event);
        } else {
            send(control, event);
        }
    }

    void step(AudioParameter& parameter) {
        const auto button = pick(4) == 0 ? Qt::RightButton : Qt::LeftButton;
        switch (pick(18)) {
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
        case 8:
            return mouse(QEvent::MouseButtonRelease, button, Qt::NoButton);
        case 9:
            return wheel();
        case 10:
        case 11:
            return key(QEvent::KeyPress);
        case 12:
            return key(QEvent::KeyRelease);
        case 13: {
            QFocusEvent event(pick(2) == 0 ? QEvent::FocusIn : QEvent::FocusOut);
            return send(target(), event);
        }
        case 14: {
            QEvent event(pick(2) == 0 ? QEvent::WindowDeactivate : QEvent::UngrabMouse);
            return send(target(), event);
        }
        case 15:
            return (pick(2) == 0 ? target() : &window_)->setEnabled(pick(2) == 0);
        case 16:
            return vanish();
        default:
            parameter.setValue(static_cast<float>(pick(5)), fromUnit, change);
            queue_.drain();
        }
    }

    void vanish() {
        switch (pick(8)) {
        case 0:
            delete target();
            break;
        case 1:
            window_.close();
            window_.show();
            break;
        default:
            target()->setVisible(pick(2) == 0);
        }
    }

    const Of kind_;
    std::mt19937 random_;
    core::MainQueue queue_;
    QWidget window_;
    QWidget* addressed_ = nullptr; // what an input event is going to
    int opened_ = 0;
};

TEST(Sequences, NeverLeaveATouchOpen) {
    for (const Of kind : {Of::knobs, Of::buttons}) {
        Disorder disorder(kind, 20240613);
        const int count = sequences();
        for (int i = 0; i < count; ++i) {
            ASSERT_TRUE(disorder.run())
                << (kind == Of::knobs ? "knobs, " : "buttons, ") << "sequence " << i;
            if (i % 256 == 0) {
                QCoreApplication::processEvents(); // what has gathered about the window
            }
        }
        EXPECT_GT(disorder.opened(), count / 2); // and they do open some
    }
}

} // namespace
} // namespace fernhorn
