#include "platform/audio/au_parameter.hpp"

#include "core/decimal_text.hpp"
#include "platform/audio/node_state.hpp"
#include "platform/audio/parameter_attributes.hpp"

namespace platform {
namespace {

AUValue clamped(AUValue value, AUValue lower, AUValue upper) {
    const AUValue notBelow = value >= lower ? value : lower; // NaN is not
    return notBelow <= upper ? notBelow : upper;
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
      value_(attributes.min) {}

AUValue AUParameter::value() const {
    AUValue result = value_.load(std::memory_order_acquire);
    detail::visitUpwards(*state_, [&](const detail::NodeCallbacks& callbacks) {
        if (!callbacks.valueProvider) {
            return false;
        }
        result = callbacks.valueProvider(*this);
        return true;
    });
    return result;
}

void AUParameter::setValue(AUValue value, AUParameterObserverToken originator,
                           std::uint64_t hostTime, AUParameterAutomationEventType eventType) {
    const AUValue stored = clamped(value, minValue_, maxValue_);
    value_.store(stored, std::memory_order_release);
    detail::visitUpwards(*state_, [&](const detail::NodeCallbacks& callbacks) {
        if (!callbacks.valueObserver) {
            return false;
        }
        callbacks.valueObserver(*this, stored);
        return true;
    });
    const AUParameterAutomationEvent event{hostTime, address_, stored, eventType};
    detail::visitUpwards(*state_, [&](const detail::NodeCallbacks& callbacks) {
        for (const auto& observer : callbacks.observers) {
            if ((originator && observer->token == originator) ||
                observer->isRemoved.load(std::memory_order_acquire)) {
                continue;
            }
            if (observer->onValue) {
                observer->onValue(address_, stored);
            } else if (observer->onAutomation) {
                observer->onAutomation(event);
            }
        }
        return false;
    });
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
