#pragma once

#include "fernhorn/testing/test_parameter.hpp"

#include <cstdint>
#include <deque>

namespace fernhorn {

/// The edit protocol without threads, audio units or queues: what has to happen, step by step.
struct PlainModel {
    std::size_t queueCapacity = 4;

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

} // namespace fernhorn
