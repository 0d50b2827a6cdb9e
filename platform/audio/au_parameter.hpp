#pragma once

#include "core/thread_state.hpp"
#include "platform/audio/au_parameter_node.hpp"

#include <atomic>
#include <optional>

namespace platform {

/// One parameter of an audio unit, as hosts see it. Made by `AUParameterTree::createParameter`.
class AUParameter final : public AUParameterNode {
  public:
    [[nodiscard]] AUParameterAddress address() const { return address_; }
    [[nodiscard]] AUValue minValue() const { return minValue_; }
    [[nodiscard]] AUValue maxValue() const { return maxValue_; }
    [[nodiscard]] AudioUnitParameterUnit unit() const { return unit_; }
    [[nodiscard]] const std::string& unitName() const { return unitName_; }
    [[nodiscard]] AudioUnitParameterOptions flags() const { return flags_; }
    /// The names of the values 0, 1, 2 …
    [[nodiscard]] const std::optional<std::vector<std::string>>& valueStrings() const {
        return valueStrings_;
    }
    /// The parameters whose values this one changes.
    [[nodiscard]] const std::optional<std::vector<AUParameterAddress>>&
    dependentParameters() const {
        return dependentParameters_;
    }

    /// What the implementor's value provider says, else the value last written. Any thread.
    [[nodiscard]] AUValue value() const;
    /// What was last written, whatever the provider says. Any thread, without locks.
    [[nodiscard]] AUValue writtenValue() const;

    /// Stores a value and tells, in this order and on this thread before it returns: the
    /// implementor's value observer, then the observers of the parameter, of the groups above it
    /// from the inside out, and of the tree. A value outside the range becomes the nearest bound,
    /// NaN the lower one; denormals stay as they are. An equal value is told again. Any thread;
    /// takes no lock, allocates nothing. Writers on different threads do not wait for each other,
    /// so observers may be called for both at once. Returns the number of this write.
    AUParameterWrite
    setValue(AUValue value, AUParameterObserverToken originator = {}, std::uint64_t hostTime = 0,
             AUParameterAutomationEventType eventType = AUParameterAutomationEventType::value);

    /// The last write. Any thread.
    [[nodiscard]] AUParameterWrite lastWrite() const {
        return numberIn(written_.load(std::memory_order_acquire));
    }
    /// A number for something that is no write, between the writes before and after this call. Any
    /// thread.
    [[nodiscard]] AUParameterWrite numberBetweenWrites();
    /// The write of `value` that this thread is just telling callbacks or observers about; absent
    /// outside of one. Any thread.
    [[nodiscard]] std::optional<AUParameterWrite> writeBeingTold(AUValue value) const {
        return toldWrite != nullptr ? findWriteBeingTold(value) : std::nullopt;
    }

    /// The text for a value, or for a missing one, by the implementor's callback. Without one: the
    /// value string of that index, else the number in the C locale ("" for a missing value).
    [[nodiscard]] std::string string(const AUValue* value) const;

    /// The value of a text, by the implementor's callback. Without one: the number, else 0.
    [[nodiscard]] AUValue value(const std::string& text) const;

  private:
    friend class AUParameterTree;
    struct Attributes;
    explicit AUParameter(Attributes attributes);

    /// A write on its way through callbacks and observers, on the stack of the writing thread.
    struct ToldWrite {
        ToldWrite(const AUParameter& written, AUValue newValue, AUParameterWrite write);
        ~ToldWrite();
        ToldWrite(const ToldWrite&) = delete;
        ToldWrite& operator=(const ToldWrite&) = delete;
        const AUParameter* const parameter;
        const AUValue value;
        const AUParameterWrite number;
        const ToldWrite* const outer;
    };
    LARKVOX_AUDIO_THREAD_LOCAL static inline const ToldWrite* toldWrite = nullptr;

    [[nodiscard]] std::optional<AUParameterWrite> findWriteBeingTold(AUValue value) const;
    static AUParameterWrite numberIn(std::uint64_t state) {
        return {static_cast<std::uint32_t>(state >> 32)};
    }

    const AUParameterAddress address_;
    const AUValue minValue_;
    const AUValue maxValue_;
    const AudioUnitParameterUnit unit_;
    const std::string unitName_;
    const AudioUnitParameterOptions flags_;
    const std::optional<std::vector<std::string>> valueStrings_;
    const std::optional<std::vector<AUParameterAddress>> dependentParameters_;
    std::atomic<std::uint64_t> written_; // number of the last write above the bits of its value
};

} // namespace platform
