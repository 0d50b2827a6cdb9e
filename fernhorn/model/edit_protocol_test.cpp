#include "fernhorn/model/parameter_gesture.hpp"
#include "fernhorn/model/parameter_settings.hpp"
#include "fernhorn/testing/plain_model.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <random>

namespace fernhorn {
namespace {

#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
constexpr int sequences = 5'000;
#else
constexpr int sequences = 100'000;
#endif
constexpr std::size_t queueCapacity = 4;

class SilentUnit final : public FernAudioUnit {
  public:
    void setParameter(platform::AUParameterAddress, float) override {}
};

/// The real thing under the same operations.
struct Rig {
    core::MainQueue queue{queueCapacity};
    std::shared_ptr<AudioParameter> parameter = TestParameter{}.on(queue);
    std::shared_ptr<SilentUnit> unit = std::make_shared<SilentUnit>();
    std::shared_ptr<ParameterSettings> settings = std::make_shared<ParameterSettings>();
    AutomationEvents events; // told until the gestures have gone
    std::vector<float> notified;
    std::optional<ParameterGesture> drag;
    std::optional<ParameterGesture> press;
    core::Subscription subscription =
        parameter->observeValue([this](float value) { notified.push_back(value); });

    explicit Rig(bool echoes) {
        recordEvents(*parameter, events);
        if (echoes) {
            settings->setupParameters({parameter});
            settings->configureAudioUnit(unit);
            settings->setupParameterTreeListeners();
        }
    }
};

// One random operation on both.
void step(Rig& rig, PlainModel& model, std::mt19937& random) {
    using Limits = std::numeric_limits<float>;
    static constexpr float values[] = {
        0, 0.25F, 0.5F, 1, -3, 7, Limits::quiet_NaN(), -Limits::infinity(), Limits::denorm_min()};
    const float value = values[random() % std::size(values)];
    const bool isDrag = random() % 2 == 0;
    auto& gesture = isDrag ? rig.drag : rig.press;
    switch (random() % 8) {
    case 0:
        rig.parameter->setValue(value, fromUi, change);
        model.set(value, fromUi, change);
        break;
    case 1:
        rig.parameter->setValue(value, fromUnit, change);
        model.set(value, fromUnit, change);
        break;
    case 2: // a host
        rig.parameter->auParameter()->setValue(value);
        model.writeUnit(value, 0);
        break;
    case 3:
    case 4:
        if (gesture) {
            gesture->change(value);
            model.set(value, fromUi, change);
        } else {
            gesture.emplace(rig.parameter, isDrag ? GestureStyle::drag() : GestureStyle::press());
            model.open(isDrag);
        }
        break;
    case 5:
        if (gesture) {
            gesture.reset();
            model.close(isDrag);
        }
        break;
    default: {
        const bool isAll = !model.merged.empty() || random() % 2 == 0;
        rig.queue.drain(isAll ? SIZE_MAX : 1);
        model.drain(isAll ? SIZE_MAX : 1);
        break;
    }
    }
}

// Where it fails, the sequence's number and length say how to come back to it.
TEST(EditProtocol, BehavesAsThePlainModelDoes) {
    for (int sequence = 0; sequence < sequences; ++sequence) {
        std::mt19937 random(static_cast<unsigned>(sequence)); // NOLINT: reproducible
        const bool echoes = sequence % 2 == 0;
        Rig rig(echoes);
        PlainModel model;
        model.queueCapacity = queueCapacity;
        model.echoes = echoes;
        const auto isSame = [&] {
            return rig.parameter->value() == model.shown &&
                   rig.parameter->auParameter()->value() == model.unitValue &&
                   rig.parameter->isBeingInteractivelyEdited() == model.isEdited &&
                   rig.parameter->valueWithPendingEdits() == model.newest() &&
                   rig.notified == model.notified && rig.events == model.events;
        };
        const auto length = 5 + random() % 25;
        for (unsigned i = 0; i < length; ++i) {
            step(rig, model, random);
            ASSERT_TRUE(isSame()) << "sequence " << sequence << ", step " << i;
        }
        rig.drag.reset();
        rig.press.reset();
        rig.queue.drain();
        const auto touches =
            std::ranges::count(rig.events, 1, &AutomationEvents::value_type::first);
        const auto releases =
            std::ranges::count(rig.events, 2, &AutomationEvents::value_type::first);
        ASSERT_EQ(touches, releases) << "sequence " << sequence;
    }
}

} // namespace
} // namespace fernhorn
