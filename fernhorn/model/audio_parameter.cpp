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

std::shared_ptr<platform::AUParameter> makeUnitSide(ParameterDescription&& from) {
    const auto flags = flagsFor(from.units, hasAny(from.valueStrings), hasAny(from.dependents));
    return platform::AUParameterTree::createParameter(
        std::move(from.identifier), std::move(from.name), from.address, from.range.lower,
        from.range.upper, from.units, std::string(unitSuffix(from.units)), flags,
        std::move(from.valueStrings), std::move(from.dependents));
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
    : AudioParameter(ParameterDescription{.address = address,
                                          .identifier = std::move(identifier),
                                          .name = std::move(name),
                                          .units = units,
                                          .range = valueRange,
                                          .defaultValue = defaultValue,
                                          .increment = valueIncrement,
                                          .valueStrings = std::move(valueStrings),
                                          .dependents = std::move(dependentParameterAddresses),
                                          .hostAccess = HostAccess::automatable,
                                          .queue = &queue,
                                          .hostTime = hostTime}) {}

AudioParameter::AudioParameter(ParameterDescription description)
    : mapping_{checked(description.range), description.increment},
      shown_(description.defaultValue),
      queue_(description.queue != nullptr ? *description.queue : core::MainQueue::shared()),
      hostTime_(description.hostTime != nullptr ? description.hostTime
                                                : &platform::AudioGetCurrentHostTime),
      auParameter_(makeUnitSide(std::move(description))),
      pending_(*this),
      defaultValue_(description.defaultValue), // NOLINT: only the texts and lists were moved
      hostAccess_(description.hostAccess),
      decided_(auParameter_->setValue(defaultValue_)),
      arrived_(auParameter_->lastWrite()) {}

AudioParameter::AudioParameter()
    : AudioParameter(0, {}, {}, AudioUnitParameterUnit::customUnit, {0, 0}, 0,
                     ValueIncrement::linear()) {}

AudioParameter::~AudioParameter() {
    queue_.withdraw(pending_);
}

core::Subscription AudioParameter::observeValue(std::function<void(float)> callback) {
    return valueObservers_.add([this, told = value(), callback = std::move(callback)]() mutable {
        if (const float newest = value(); !(newest == told)) {
            told = newest;
            callback(newest);
        }
    });
}

core::Subscription
AudioParameter::observeIsBeingInteractivelyEdited(std::function<void(bool)> callback) {
    return isBeingEdited_.observe(std::move(callback));
}

float AudioParameter::valueWithPendingEdits() const {
    return pending_.newestEdit().value_or(value());
}

float AudioParameter::newestValue() const {
    if (pending_.isAny()) {
        return pending_.newestUnwritten().value_or(auParameter_->writtenValue());
    }
    return auParameter_->lastWrite() == arrived_.load() ? value() : auParameter_->writtenValue();
}

bool AudioParameter::hasNoEffect(float target) const {
    // In this order: with nothing pending, what is shown is the outcome of all calls before.
    return !pending_.isAny() && target == value();
}

void AudioParameter::setValue(float newValue, ParameterEditor source, ParameterEditorState state) {
    const float target = clamped(newValue, mapping_.range);
    std::optional<platform::AUParameterWrite> write;
    if (source == ParameterEditor::parameterObserver) {
        write = auParameter_->writeBeingTold(target);
    }
    if (state == ParameterEditorState::change && hasNoEffect(target)) {
        if (!write) {
            return;
        }
        // An older write may be on its way to be sent. Either it is seen pending after this, or
        // this is seen when it arrives.
        overtake(*write);
        if (hasNoEffect(target)) {
            return;
        }
    }
    if (source == ParameterEditor::ui) {
        write = auParameter_->setValue(target, {}, hostTime_(), automationEventType(state));
    }
    pending_.send({target, source, write}, queue_);
}

void AudioParameter::overtake(platform::AUParameterWrite write) {
    auto decided = decided_.load(std::memory_order_seq_cst);
    while (decided.isBefore(write, auParameter_->lastWrite()) &&
           !decided_.compare_exchange_weak(decided, write, std::memory_order_seq_cst)) {
    }
    arrived_.store(write, std::memory_order_relaxed);
}

bool AudioParameter::isOvertaken(platform::AUParameterWrite write) const {
    return write.isBefore(decided_.load(std::memory_order_seq_cst), auParameter_->lastWrite());
}

bool AudioParameter::apply(const ParameterChange& change) {
    const float value = change.value;
    const bool isForeign = change.source != ParameterEditor::ui;
    arrived_.store(change.write ? *change.write : auParameter_->lastWrite(),
                   std::memory_order_relaxed);
    if ((change.write && isOvertaken(*change.write)) || (isForeign && isBeingEdited_.value())) {
        pending_.arrived(change.source);
        return true;
    }
    if (change.write) {
        overtake(*change.write);
    }
    const bool isChanged = !(value == shown_.load(std::memory_order_relaxed));
    shown_.store(value, std::memory_order_relaxed);
    const auto count = ++shownCount_;
    // Before observers run, who may set the value in turn.
    pending_.arrived(change.source);
    if (isChanged) {
        valueObservers_.notify();
    }
    return count == shownCount_;
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
