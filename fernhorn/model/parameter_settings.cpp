#include "fernhorn/model/parameter_settings.hpp"

#include "core/bundle_information.hpp"
#include "core/decimal_text.hpp"
#include "core/fatal.hpp"
#include "core/text_service.hpp"

#include <cmath>
#include <utility>

namespace fernhorn {

using platform::AUParameter;
using platform::AUParameterAddress;
using platform::AUParameterTree;

ParameterSettings::Parameters ParameterSettings::parameters() const {
    const auto routes = routes_.read();
    return routes ? routes->parameters : Parameters();
}

void ParameterSettings::setParameters(Parameters parameters) {
    routes_.update([&](Routes& routes) {
        routes.byAddress.clear();
        for (const auto& parameter : parameters) {
            routes.byAddress.try_emplace(parameter->address(), parameter.get());
        }
        routes.parameters = std::move(parameters);
    });
}

std::string ParameterSettings::pluginVersion() const {
    return core::bundleInformation("CFBundleShortVersionString").value_or("Unknown");
}

std::shared_ptr<FernAudioUnit> ParameterSettings::audioUnit() const {
    const auto routes = routes_.read();
    return routes ? routes->audioUnit.lock() : nullptr;
}

void ParameterSettings::setAudioUnit(const std::shared_ptr<FernAudioUnit>& audioUnit) {
    routes_.update([&](Routes& routes) { routes.audioUnit = audioUnit; });
}

void ParameterSettings::setupParameters(Parameters parameters) {
    setParameters(std::move(parameters));
}

void ParameterSettings::configureAudioUnit(const std::shared_ptr<FernAudioUnit>& audioUnit) {
    setAudioUnit(audioUnit);
    if (audioUnit == nullptr) {
        return;
    }
    const auto all = parameters();
    platform::AUParameterGroup::Children children;
    children.reserve(all.size());
    for (const auto& parameter : all) {
        children.push_back(parameter->auParameter());
    }
    audioUnit->setParameterTree(AUParameterTree::createTree(std::move(children)));
    for (const auto& parameter : all) {
        audioUnit->setParameter(parameter->address(), parameter->value());
    }
}

std::int64_t ParameterSettings::paramsHash() const {
    Hasher hasher;
    for (const auto& parameter : parameters()) {
        hasher.combine(parameter->value());
    }
    hashAdditionalValues(hasher);
    return hasher.finalize();
}

void ParameterSettings::hashAdditionalValues(Hasher&) const {}

void ParameterSettings::setupParameterTreeListeners() {
    const auto currentTree = [this] {
        const auto unit = audioUnit();
        return unit != nullptr ? unit->parameterTree() : nullptr;
    };
    if (const auto tree = currentTree()) {
        tree->setImplementorValueObserver([weak = weak_from_this()](const AUParameter& parameter,
                                                                    float value) {
            if (const auto settings = weak.lock()) {
                settings->setValue(value, parameter.address(), ParameterEditor::parameterObserver);
            }
        });
    }
    if (const auto tree = currentTree()) {
        tree->setImplementorStringFromValueCallback(&valueText);
    }
    if (const auto tree = currentTree()) {
        tree->setImplementorValueFromStringCallback(
            [](const AUParameter&, const std::string& text) {
                return core::parseDecimal(text).value_or(0);
            });
    }
}

void ParameterSettings::setValue(float value, AUParameterAddress address, ParameterEditor source) {
    const auto routes = routes_.read();
    if (!routes) {
        return;
    }
    const auto found = routes->byAddress.find(address);
    if (found != routes->byAddress.end()) {
        AudioParameter& parameter = *found->second;
        parameter.setValue(value, source, ParameterEditorState::change);
        const auto& dependents = parameter.dependentParameterAddresses();
        if (dependents && !dependents->empty()) {
            updateDependentValues(address, value);
        }
    }
    if (const auto unit = routes->audioUnit.lock()) {
        unit->setParameter(address, value);
    }
}

void ParameterSettings::updateDependentValues(AUParameterAddress, float) {}

std::string valueText(const AUParameter& parameter, const float* value) {
    if (value == nullptr || std::isnan(*value)) {
        return "-";
    }
    const auto& strings = parameter.valueStrings();
    if (strings && !strings->empty()) {
        constexpr float limit = 9223372036854775808.0F; // 2^63
        if (std::isfinite(*value) && !(*value >= -limit && *value < limit)) {
            core::fatal("A value beyond 64 bits has no value string: " +
                        core::shortestText(*value));
        }
        if (*value > -1 && *value < static_cast<float>(strings->size())) {
            return (*strings)[static_cast<std::size_t>(*value)];
        }
    }
    return core::TextService::current().localizedWholeNumber(static_cast<double>(*value));
}

} // namespace fernhorn
