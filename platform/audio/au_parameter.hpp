#pragma once

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

    /// Stores a value and tells, in this order and on this thread before it returns: the
    /// implementor's value observer, then the observers of the parameter, of the groups above it
    /// from the inside out, and of the tree. A value outside the range becomes the nearest bound,
    /// NaN the lower one; denormals stay as they are. An equal value is told again. Any thread;
    /// takes no lock, allocates nothing. Writers on different threads do not wait for each other,
    /// so observers may be called for both at once.
    void setValue(AUValue value, AUParameterObserverToken originator = {},
                  std::uint64_t hostTime = 0,
                  AUParameterAutomationEventType eventType = AUParameterAutomationEventType::value);

    /// The text for a value, or for a missing one, by the implementor's callback. Without one: the
    /// value string of that index, else the number in the C locale ("" for a missing value).
    [[nodiscard]] std::string string(const AUValue* value) const;

    /// The value of a text, by the implementor's callback. Without one: the number, else 0.
    [[nodiscard]] AUValue value(const std::string& text) const;

  private:
    friend class AUParameterTree;
    struct Attributes;
    explicit AUParameter(Attributes attributes);

    const AUParameterAddress address_;
    const AUValue minValue_;
    const AUValue maxValue_;
    const AudioUnitParameterUnit unit_;
    const std::string unitName_;
    const AudioUnitParameterOptions flags_;
    const std::optional<std::vector<std::string>> valueStrings_;
    const std::optional<std::vector<AUParameterAddress>> dependentParameters_;
    std::atomic<AUValue> value_;
};

} // namespace platform
