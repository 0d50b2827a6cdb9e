#include "platform/audio/au_parameter.hpp"

#include "core/decimal_text.hpp"
#include "platform/audio/node_state.hpp"
#include "platform/audio/parameter_attributes.hpp"

#include <bit>

namespace platform {
namespace {

AUValue clamped(AUValue value, AUValue lower, AUValue upper) {
    const AUValue notBelow = value >= lower ? value : lower; // NaN is not
    return notBelow <= upper ? notBelow : upper;
}

std::uint64_t packed(std::uint32_t number, AUValue value) {
    return std::uint64_t{number} << 32 | std::bit_cast<std::uint32_t>(value);
}

AUValue valueIn(std::uint64_t state) {
    return std::bit_cast<AUValue>(static_cast<std::uint32_t>(state));
}

const AUParameterNode::ValueObserver* nearestValueObserver(const detail::CallbackChain& outermost) {
    const AUParameterNode::ValueObserver* nearest = nullptr;
    for (const auto* level = &outermost; level != nullptr; level = level->inner) {
        if (level->callbacks.valueObserver) {
            nearest = &level->callbacks.valueObserver;
        }
    }
    return nearest;
}

// From the inside out.
void tellObservers(const detail::CallbackChain& level, const AUParameterAutomationEvent& event,
                   AUParameterObserverToken originator) {
    if (level.inner != nullptr) {
        tellObservers(*level.inner, event, originator);
    }
    for (const auto& observer : level.callbacks.observers) {
        if ((originator && observer->token == originator) ||
            observer->isRemoved.load(std::memory_order_acquire)) {
            continue;
        }
        if (observer->onValue) {
            observer->onValue(event.address, event.value);
        } else if (observer->onAutomation) {
            observer->onAutomation(event);
        }
    }
}

} // namespace

AUParameter::AUParameter(Attributes attributes)
    : AUParameterNode(std::move(attributes.identifier), std::move(attributes.name)),
      address_(attributes.address),
      minValue_(attributes.min),
      maxValue_(attributes.max),
      unit_(attributes.unit),
      unitName_(std::move(attributes.unitName)),
      flags_(attributes.flags),
      valueStrings_(std::move(attributes.valueStrings)),
      dependentParameters_(std::move(attributes.dependentParameters)),
      written_(packed(0, attributes.min)) {}

AUValue AUParameter::writtenValue() const {
    return valueIn(written_.load(std::memory_order_seq_cst));
}

AUValue AUParameter::value() const {
    AUValue result = writtenValue();
    detail::visitUpwards(*state_, [&](const detail::NodeCallbacks& callbacks) {
        if (!callbacks.valueProvider) {
            return false;
        }
        result = callbacks.valueProvider(*this);
        return true;
    });
    return result;
}

AUParameterWrite AUParameter::setValue(AUValue value, AUParameterObserverToken originator,
                                       std::uint64_t hostTime,
                                       AUParameterAutomationEventType eventType) {
    const AUValue stored = clamped(value, minValue_, maxValue_);
    // Value and number in one: the numbers are in the order in which the value changed.
    std::uint64_t before = written_.load(std::memory_order_relaxed);
    std::uint64_t after = 0;
    do {
        after = packed(numberIn(before).number + 1, stored);
    } while (!written_.compare_exchange_weak(before, after, std::memory_order_seq_cst,
                                             std::memory_order_relaxed));
    const ToldWrite told(*this, stored, numberIn(after));
    detail::withCallbacks(*state_, nullptr, [&](const detail::CallbackChain& outermost) {
        if (const auto* const nearest = nearestValueObserver(outermost)) {
            (*nearest)(*this, stored);
        }
        tellObservers(outermost, {hostTime, address_, stored, eventType}, originator);
    });
    return told.number;
}

AUParameter::ToldWrite::ToldWrite(const AUParameter& written, AUValue newValue,
                                  AUParameterWrite write)
    : parameter(&written), value(newValue), number(write), outer(toldWrite) {
    toldWrite = this;
}

AUParameter::ToldWrite::~ToldWrite() {
    toldWrite = outer;
}

AUParameterWrite AUParameter::numberBetweenWrites() {
    return {numberIn(written_.fetch_add(packed(1, 0), std::memory_order_acq_rel)).number + 1};
}

std::optional<AUParameterWrite> AUParameter::findWriteBeingTold(AUValue value) const {
    for (const ToldWrite* told = toldWrite; told != nullptr; told = told->outer) {
        if (told->parameter == this && told->value == value) {
            return told->number;
        }
    }
    return std::nullopt;
}

std::string AUParameter::string(const AUValue* value) const {
    std::optional<std::string> text;
    detail::visitUpwards(*state_, [&](const detail::NodeCallbacks& callbacks) {
        if (callbacks.stringFromValue) {
            text = callbacks.stringFromValue(*this, value);
        }
        return text.has_value();
    });
    if (text) {
        return *std::move(text);
    }
    if (value == nullptr) {
        return {};
    }
    const auto count = valueStrings_ ? valueStrings_->size() : 0;
    if (*value > -1 && *value < static_cast<AUValue>(count)) {
        return (*valueStrings_)[static_cast<std::size_t>(*value)];
    }
    return core::shortestText(*value);
}

AUValue AUParameter::value(const std::string& text) const {
    std::optional<AUValue> result;
    detail::visitUpwards(*state_, [&](const detail::NodeCallbacks& callbacks) {
        if (callbacks.valueFromString) {
            result = callbacks.valueFromString(*this, text);
        }
        return result.has_value();
    });
    return result ? *result : core::parseDecimal(text).value_or(0);
}

} // namespace platform
