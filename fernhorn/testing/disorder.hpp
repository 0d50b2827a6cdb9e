#pragma once

#include "fernhorn/buttons/parameter_buttons.hpp"
#include "fernhorn/dials/dial.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/testing/test_parameter.hpp"
#include "platform/testing/window_testing.hpp"

#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QLoggingCategory>

#include <functional>
#include <random>
#include <utility>

namespace fernhorn {

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

    void addButtons(const std::shared_ptr<AudioParameter>& p) {
        constexpr QSizeF size(40, 20);
        const auto* const pad = resourceBundle().assets().image(QStringLiteral("hold-pad"));
        const std::function<QWidget*()> kinds[] = {
            [&] { return new ChaosToggleButton(p, 1, ChaosButtonColor::yellow, size); },
            [&] { return new ModeToggleButton(p, 2, ToggleButtonStyle::retro, 12, {}, size); },
            [&] { return new ToggleButton(p, {}, 12, {}, size); },
            [&] { return new LeftRightArrowButton(p, 1, size); },
            [&] { return new ChaosToggleButtonNarrow(p, {}, size); }};
        add(new ParameterHoldButton(p, pad, pad));
        if (const int kind = pick(6); kind < 5) {
            add(kinds[kind]());
        }
    }

    void add(QWidget* control) {
        control->setParent(&window_);
        control->move(pick(100), pick(60));
        control->show();
    }

    /// To any control, which may go meanwhile.
    template<class Send>
    void toOne(Send send) {
        addressed_ = target();
        send(*addressed_);
        addressed_ = nullptr;
    }
    void mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
        const QPointF point(pick(60) - 10, pick(80) - 20);
        const auto modifiers = pick(4) == 0 ? Qt::AltModifier : Qt::NoModifier;
        toOne([&](QWidget& control) {
            platform::testing::sendMouse(control, type, point, button, held, modifiers);
        });
    }
    void key(QEvent::Type type) {
        constexpr Qt::Key keys[] = {Qt::Key_Up,     Qt::Key_PageDown, Qt::Key_End,
                                    Qt::Key_Down,   Qt::Key_Delete,   Qt::Key_Return,
                                    Qt::Key_Escape, Qt::Key_Space};
        const auto modifiers = pick(8) == 0 ? Qt::ControlModifier : Qt::NoModifier;
        toOne([&](QWidget& control) {
            auto* const field = control.findChild<QLineEdit*>();
            addressed_ = field != nullptr ? nullptr : addressed_;
            platform::testing::sendKey(field != nullptr ? *field : control, type, keys[pick(8)],
                                       modifiers, pick(8) == 0);
        });
    }

    void step(AudioParameter& parameter) {
        const auto button = pick(4) == 0 ? Qt::RightButton : Qt::LeftButton;
        const int what = pick(18);
        if (what < 4) {
            mouse(what == 0 ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, button,
                  button);
        } else if (what < 7) {
            mouse(QEvent::MouseMove, Qt::NoButton, pick(6) == 0 ? Qt::NoButton : Qt::LeftButton);
        } else if (what < 9) {
            mouse(QEvent::MouseButtonRelease, button, Qt::NoButton);
        } else if (what < 10) {
            toOne([&](QWidget& control) {
                platform::testing::sendWheel(control, pick(400) - 200,
                                             pick(5) == 0 ? Qt::ScrollMomentum : Qt::NoScrollPhase,
                                             pick(2) == 0);
            });
        } else if (what < 13) {
            key(what < 12 ? QEvent::KeyPress : QEvent::KeyRelease);
        } else if (what < 14) {
            QFocusEvent event(pick(2) == 0 ? QEvent::FocusIn : QEvent::FocusOut);
            QCoreApplication::sendEvent(target(), &event);
        } else if (what < 15) {
            platform::testing::sendEvent(*target(), pick(2) == 0 ? QEvent::WindowDeactivate
                                                                 : QEvent::UngrabMouse);
        } else if (what < 16) {
            (pick(2) == 0 ? target() : &window_)->setEnabled(pick(2) == 0);
        } else if (what < 17) {
            vanish();
        } else {
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

} // namespace fernhorn
