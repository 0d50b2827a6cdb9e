#include "fernhorn/model/parameter_settings.hpp"

#include "core/bundle_information.hpp"
#include "core/decimal_text.hpp"
#include "core/fatal.hpp"
#include "core/text_service.hpp"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <thread>
#include <utility>

namespace fernhorn {

using platform::AUParameter;
using platform::AUParameterAddress;
using platform::AUParameterTree;

namespace {

constexpr auto fromTree = ParameterEditor::parameterObserver;

} // namespace

/// Stands between a tree, which may outlive the settings, and settings that are held by value, or
/// are not complete yet when they begin to listen.
class ParameterSettings::Listener {
  public:
    explicit Listener(ParameterSettings& settings) : settings_(settings) {}

    void hear(const AUParameter& parameter, float value) {
        users_.fetch_add(1, std::memory_order_seq_cst);
        if (hasStopped_.load(std::memory_order_seq_cst)) {
            users_.fetch_sub(1, std::memory_order_release);
            return;
        }
        const std::weak_ptr<ParameterSettings> weak = settings_.weak_from_this();
        const bool isShared = weak.owner_before(std::weak_ptr<ParameterSettings>()) ||
                              std::weak_ptr<ParameterSettings>().owner_before(weak);
        if (!isShared) {
            settings_.setValue(value, parameter.address(), fromTree);
            users_.fetch_sub(1, std::memory_order_release);
            return;
        }
        const auto held = weak.lock();
        // Before the last reference may go here.
        users_.fetch_sub(1, std::memory_order_release);
        if (held != nullptr) {
            held->setValue(value, parameter.address(), fromTree);
        }
    }

    void stop() {
        hasStopped_.store(true, std::memory_order_seq_cst);
        while (users_.load(std::memory_order_seq_cst) != 0) {
            std::this_thread::yield();
        }
    }

  private:
    ParameterSettings& settings_;
    std::atomic<int> users_{0}; // callbacks that use `settings_` without holding it
    std::atomic<bool> hasStopped_{false};
};

ParameterSettings::ParameterSettings() : listener_(std::make_shared<Listener>(*this)) {}

ParameterSettings::~ParameterSettings() {
    stopListening();
}

void ParameterSettings::stopListening() {
    listener_->stop();
}

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
        if (parameter->hostAccess() != HostAccess::hidden) {
            children.push_back(parameter->auParameter());
        }
    }
    // Hosts observe the tree they know: it stays as long as it is right.
    if (const auto tree = audioUnit->parameterTree();
        tree == nullptr || tree->children() != children) {
        audioUnit->setParameterTree(AUParameterTree::createTree(std::move(children)));
    }
    for (const auto& parameter : all) {
        if (parameter->hostAccess() == HostAccess::hidden) {
            continue;
        }
        float value = 0;
        float newest = parameter->newestValue();
        do { // a host may be writing already
            value = newest;
            audioUnit->setParameter(parameter->address(), value);
            newest = parameter->newestValue();
        } while (newest != value);
        // Nobody has told the interface of what the tree got before it was listened to.
        parameter->setValue(value, ParameterEditor::parameterObserver,
                            ParameterEditorState::change);
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
        if (const auto weak = weak_from_this(); !weak.expired()) {
            tree->setImplementorValueObserver([weak](const AUParameter& parameter, float value) {
                if (const auto settings = weak.lock()) {
                    settings->setValue(value, parameter.address(), fromTree);
                }
            });
        } else {
            tree->setImplementorValueObserver(
                [listener = listener_](const AUParameter& parameter, float value) {
                    listener->hear(parameter, value);
                });
        }
        const std::lock_guard lock(stateMutex_);
        listenedTree_ = tree;
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
    const auto unit = routes->audioUnit.lock();
    if (unit == nullptr) {
        return;
    }
    unit->setParameter(address, value);
    if (found == routes->byAddress.end()) {
        return;
    }
    // Another thread may have written the tree after this one and told the unit before it. Whoever
    // tells it last finds its own value in the tree.
    const AUParameter& written = *found->second->auParameter();
    if (written.writeBeingTold(value)) {
        float newest = written.writtenValue();
        while (newest != value) {
            value = newest;
            unit->setParameter(address, value);
            newest = written.writtenValue();
        }
    }
}

void ParameterSettings::updateDependentValues(AUParameterAddress, float) {}

std::shared_ptr<AudioParameter>
ParameterSettings::parameterWithAddress(AUParameterAddress address) const {
    const auto routes = routes_.read();
    if (!routes) {
        return nullptr;
    }
    const auto found = routes->byAddress.find(address);
    return found != routes->byAddress.end() ? found->second->shared_from_this() : nullptr;
}

std::shared_ptr<AudioParameter>
ParameterSettings::parameterWithIdentifier(std::string_view identifier) const {
    const auto all = parameters();
    const auto found = std::ranges::find(all, identifier, &AudioParameter::identifier);
    return found != all.end() ? *found : nullptr;
}

ParameterState ParameterSettings::state() const {
    ParameterState state{.version = stateVersion()};
    {
        const std::lock_guard lock(stateMutex_);
        state.values = unknownValues_;
        state.texts = texts_;
    }
    for (const auto& parameter : parameters()) {
        state.values[parameter->identifier()] = parameter->auParameter()->value();
    }
    return state;
}

bool ParameterSettings::restore(ParameterState state,
                                platform::AUParameterObserverToken originator) {
    if (state.version > stateVersion()) {
        return false;
    }
    if (state.version < stateVersion()) {
        migrate(state);
    }
    const auto all = parameters();
    const auto unit = audioUnit();
    const auto tree = unit != nullptr ? unit->parameterTree() : nullptr;
    bool isListening = false;
    {
        const std::lock_guard lock(stateMutex_);
        isListening = tree != nullptr && listenedTree_.lock() == tree;
        texts_ = std::move(state.texts);
        unknownValues_ = state.values;
        for (const auto& parameter : all) {
            unknownValues_.erase(parameter->identifier());
        }
    }
    for (const auto& parameter : all) {
        const auto found = state.values.find(parameter->identifier());
        const bool isListenedTo = isListening && tree->parameterWithAddress(parameter->address()) ==
                                                     parameter->auParameter();
        restoreValue(*parameter,
                     found != state.values.end() ? found->second : parameter->defaultValue(),
                     isListenedTo, originator);
    }
    return true;
}

void ParameterSettings::restoreValue(AudioParameter& parameter, float value, bool isListenedTo,
                                     platform::AUParameterObserverToken originator) {
    const auto& unitSide = parameter.auParameter();
    unitSide->setValue(value, originator);
    if (isListenedTo) {
        return; // the tree has told the interface and the signal processing
    }
    const float stored = unitSide->writtenValue();
    if (parameter.hostAccess() == HostAccess::hidden) {
        parameter.setValue(stored, fromTree, ParameterEditorState::change);
    } else {
        setValue(stored, parameter.address(), fromTree);
    }
}

void ParameterSettings::migrate(ParameterState&) const {}

std::string ParameterSettings::stateText(const std::string& name) const {
    const std::lock_guard lock(stateMutex_);
    const auto found = texts_.find(name);
    return found != texts_.end() ? found->second : std::string();
}

void ParameterSettings::setStateText(const std::string& name, std::string text) {
    const std::lock_guard lock(stateMutex_);
    texts_[name] = std::move(text);
}

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
