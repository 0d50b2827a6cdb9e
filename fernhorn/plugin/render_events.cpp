#include "fernhorn/plugin/render_events.hpp"

#include <algorithm>

namespace fernhorn {

RenderEvents::RenderEvents(FernAudioUnit& unit, platform::AUParameterObserverToken originator)
    : unit_(unit), originator_(originator) {
    const auto tree = unit.parameterTree();
    for (auto& unitSide : tree->allParameters()) {
        indices_.try_emplace(unitSide->address(), parameters_.size());
        parameters_.push_back({.unitSide = std::move(unitSide)});
    }
    changed_.reserve(parameters_.size());
}

void RenderEvents::apply(const platform::AUParameterEvent& event) {
    const auto found = indices_.find(event.parameterAddress);
    if (found == indices_.end()) {
        unit_.setParameter(event.parameterAddress, event.value);
        return;
    }
    Parameter& parameter = parameters_[found->second];
    const float lower = parameter.unitSide->minValue();
    // As the tree will have it, NaN included.
    parameter.value =
        event.value >= lower ? std::min(event.value, parameter.unitSide->maxValue()) : lower;
    unit_.setParameter(event.parameterAddress, parameter.value);
    if (!std::exchange(parameter.isChanged, true)) {
        changed_.push_back(found->second);
    }
}

void RenderEvents::publish() {
    for (const std::size_t index : changed_) {
        Parameter& parameter = parameters_[index];
        parameter.isChanged = false;
        parameter.unitSide->setValue(parameter.value, originator_);
    }
    changed_.clear();
}

} // namespace fernhorn
