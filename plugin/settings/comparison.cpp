#include "plugin/settings/comparison.hpp"

#include "fernhorn/model/parameter_gesture.hpp"

#include <utility>

namespace larkvox {

Comparison::Comparison(fernhorn::ParameterSettings::Parameters parameters)
    : parameters_(std::move(parameters)) {
    for (const auto& parameter : parameters_) {
        aside_.push_back(parameter->valueWithPendingEdits());
    }
}

void Comparison::swap() {
    // All values are kept before the first edit: some change others, which are set after them.
    auto heard = std::move(aside_);
    aside_.clear();
    for (const auto& parameter : parameters_) {
        aside_.push_back(parameter->valueWithPendingEdits());
    }
    for (std::size_t i = 0; i < parameters_.size(); ++i) {
        if (parameters_[i]->valueWithPendingEdits() != heard[i]) {
            fernhorn::ParameterGesture(parameters_[i]).change(heard[i]);
        }
    }
}

} // namespace larkvox
