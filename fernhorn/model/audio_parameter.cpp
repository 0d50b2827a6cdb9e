#include "fernhorn/model/audio_parameter.hpp"

#include "core/fatal.hpp"

#include <algorithm>
#include <utility>

namespace fernhorn {
namespace {

using platform::AudioUnitParameterOptions;
using platform::AudioUnitParameterUnit;

AudioUnitParameterOptions flagsFor(AudioUnitParameterUnit units, bool hasValueStrings,
                                   bool hasDependents) {
    AudioUnitParameterOptions flags =
        platform::kAudioUnitParameterFlag_IsReadable | platform::kAudioUnitParameterFlag_IsWritable;
    if (hasDependents) {
        flags |= platform::kAudioUnitParameterFlag_IsGlobalMeta |
                 platform::kAudioUnitParameterFlag_HasClump;
    }
    if (hasValueStrings) {
        flags |= platform::kAudioUnitParameterFlag_ValuesHaveStrings;
    }
    if (units == AudioUnitParameterUnit::decibels || units == AudioUnitParameterUnit::linearGain ||
        units == AudioUnitParameterUnit::absoluteCents) {
        flags |= platform::kAudioUnitParameterFlag_CanRamp;
    }
    return flags;
}

float clamped(float value, ValueRange range) {
    const float notBelow = value >= range.lower ? value : range.lower; // NaN is not
    return notBelow <= range.upper ? notBelow : range.upper;
}

ValueRange checked(ValueRange range) {
    if (!(range.lower <= range.upper)) {
        core::fatal("The bounds of a parameter's range are NaN or in the wrong order");
    }
    return range;
}

bool hasAny(const auto& list) {
    return list && !list->empty();
}

std::shared_ptr<platform::AUParameter>
makeUnitSide(platform::AUParameterAddress address, std::string identifier, std::string name,
             AudioUnitParameterUnit units, ValueRange range,
             std::optional<std::vector<std::string>> valueStrings,
             std::optional<std::vector<platform::AUParameterAddress>> dependents) {
    const auto flags = flagsFor(units, hasAny(valueStrings), hasAny(dependents));
    return platform::AUParameterTree::createParameter(
        std::move(identifier), std::move(name), address, range.lower, range.upper, units,
        std::string(unitSuffix(units)), flags, std::move(valueStrings), std::move(dependents));
}

} // namespace

std::string_view unitSuffix(AudioUnitParameterUnit unit) {
    switch (unit) {
    case AudioUnitParameterUnit::percent:
        return "%";
    case AudioUnitParameterUnit::hertz:
        return "Hz";
    case AudioUnitParameterUnit::decibels:
        return "dB";
    case AudioUnitParameterUnit::milliseconds:
        return "MS"; // in capitals on purpose
    default:
        return "";
    }
}

AudioParameter::AudioParameter(
    platform::AUParameterAddress address, std::string identifier, std::string name,
    AudioUnitParameterUnit units, ValueRange valueRange, float defaultValue,
    ValueIncrement valueIncrement, std::optional<std::vector<std::string>> valueStrings,
    std::optional<std::vector<platform::AUParameterAddress>> dependentParameterAddresses,
    core::MainQueue& queue, HostTime hostTime)
    : mapping_{checked(valueRange), valueIncrement},
      shown_(defaultValue),
      pending_(*this),
      queue_(queue),
      hostTime_(hostTime),
      auParameter_(makeUnitSide(address, std::move(identifier), std::move(name), units, valueRange,
                                std::move(valueStrings), std::move(dependentParameterAddresses))),
      defaultValue_(defaultValue) {
    auParameter_->setValue(defaultValue);
}

AudioParameter::AudioParameter()
    : AudioParameter(0, {}, {}, AudioUnitParameterUnit::customUnit, {0, 0}, 0,
                     ValueIncrement::linear()) {}

core::Subscription AudioParameter::observeValue(std::function<void(float)> callback) {
    return valueObservers_.add(std::move(callback));
}

core::Subscription
AudioParameter::observeIsBeingInteractivelyEdited(std::function<void(bool)> callback) {
    return isBeingEdited_.observe(std::move(callback));
}

float AudioParameter::valueWithPendingEdits() const {
    return pending_.newestEdit().value_or(value());
}

void AudioParameter::setValue(float newValue, ParameterEditor source, ParameterEditorState state) {
    const float target = clamped(newValue, mapping_.range);
    // In this order: with nothing pending, what is shown is the outcome of all calls before.
    if (state == ParameterEditorState::change && !pending_.isAny() && target == value()) {
        return;
    }
    if (source == ParameterEditor::ui) {
        auParameter_->setValue(target, {}, hostTime_(), automationEventType(state));
    }
    pending_.send(target, source, queue_);
}

void AudioParameter::apply(float value, ParameterEditor source) {
    if (isBeingEdited_.value() && source != ParameterEditor::ui) {
        pending_.arrived(source);
        return;
    }
    const bool isChanged = !(value == shown_.load(std::memory_order_relaxed));
    shown_.store(value, std::memory_order_relaxed);
    // Before observers run, who may set the value in turn.
    pending_.arrived(source);
    if (isChanged) {
        valueObservers_.notify(value);
    }
}

bool AudioParameter::isInAbsoluteCents() const {
    return units() == AudioUnitParameterUnit::absoluteCents;
}

bool AudioParameter::isIndexed() const {
    return units() == AudioUnitParameterUnit::indexed;
}

float AudioParameter::displayableValue() const {
    return isInAbsoluteCents() ? value() / 100 : value();
}

float AudioParameter::normalizedPosition(float value) const {
    return mapping_.normalizedPosition(value);
}

float AudioParameter::valueForNormalizedPosition(float position) const {
    return mapping_.valueForNormalizedPosition(position);
}

std::optional<float> AudioParameter::midpointExponent(float midpoint) const {
    return mapping_.midpointExponent(midpoint);
}

int AudioParameter::imageIndex(float value, int imageCount) const {
    return mapping_.imageIndex(value, imageCount);
}

} // namespace fernhorn
