#include "fernhorn/model/parameter_gesture.hpp"
#include "fernhorn/model/parameter_settings.hpp"
#include "fernhorn/testing/test_parameter.hpp"

#include <gtest/gtest.h>

#include <deque>
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

/// The edit protocol without threads, audio units or queues: what has to happen, step by step.
struct PlainModel {
    struct Change {
        float value;
        ParameterEditor source;
    };
    float shown = 0;
    float unitValue = 0;
    bool isEdited = false;
    bool echoes = false; // whether the unit's writes come back
    std::deque<Change> single;
    std::deque<Change> merged; // at most one of each source
    AutomationEvents events;
    std::vector<float> notified;

    static float clamped(float value) { return value >= 0 ? (value <= 1 ? value : 1) : 0; }

    void set(float newValue, ParameterEditor source, ParameterEditorState state) {
        const float value = clamped(newValue);
        if (state == change && single.empty() && merged.empty() && value == shown) {
            return;
        }
        if (source == fromUi) {
            writeUnit(value, static_cast<int>(state));
        }
        if (merged.empty() && single.size() < queueCapacity) {
            single.push_back({value, source});
        } else {
            std::erase_if(merged, [&](const Change& one) { return one.source == source; });
            merged.push_back({value, source});
        }
    }

    void writeUnit(float value, int eventType) {
        unitValue = clamped(value);
        if (echoes) {
            set(unitValue, fromUnit, change);
        }
        events.emplace_back(eventType, unitValue);
    }

    [[nodiscard]] float newest() const {
        for (const auto* const line : {&merged, &single}) {
            for (auto one = line->rbegin(); one != line->rend(); ++one) {
                if (one->source == fromUi) {
                    return one->value;
                }
            }
        }
        return shown;
    }

    int gestures = 0;
    void open(bool isDrag) {
        isEdited = isEdited || isDrag;
        if (++gestures == 1) {
            set(newest(), fromUi, begin);
        }
    }
    void close(bool isDrag) {
        isEdited = isEdited && !isDrag;
        if (--gestures == 0) {
            set(newest(), fromUi, end);
        }
    }

    void drain(std::size_t count) {
        // Once changes are merged, a part of them would depend on how the queue counts.
        for (count = merged.empty() ? count : SIZE_MAX; count > 0; --count) {
            auto& line = single.empty() ? merged : single;
            if (line.empty()) {
                return;
            }
            const Change next = line.front();
            line.pop_front();
            if ((isEdited && next.source != fromUi) || next.value == shown) {
                continue;
            }
            shown = next.value;
            notified.push_back(shown);
        }
    }
};

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
    std::optional<ParameterGesture> drag;
    std::optional<ParameterGesture> press;
    AutomationEvents events;
    std::vector<float> notified;
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
