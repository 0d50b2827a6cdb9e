#pragma once

#include "core/fatal.hpp"
#include "platform/controls/control.hpp"

#include <concepts>
#include <functional>
#include <memory>
#include <utility>

namespace driftwood {

/// A target that calls a function, with the sender as the type it is of. Main thread.
template<class Sender>
class ActionTrampoline final : public platform::ActionTarget {
  public:
    explicit ActionTrampoline(std::function<void(Sender&)> action) : action_(std::move(action)) {}

    /// Stops the program when the sender is of another type.
    void actionWithSender(platform::Control& sender) {
        auto* const typed = dynamic_cast<Sender*>(&sender);
        if (typed == nullptr) {
            core::fatal("an action came from a sender of another type");
        }
        const auto action = action_; // it may replace this trampoline
        action(*typed);
    }

  private:
    std::function<void(Sender&)> action_;
};

/// Makes a function the action of a control, in place of what was there; it lives as long as the
/// control or until another function takes its place.
template<std::derived_from<platform::Control> ControlType>
void setActionFunction(ControlType& control,
                       std::type_identity_t<std::function<void(ControlType&)>> action) {
    auto trampoline = std::make_shared<ActionTrampoline<ControlType>>(std::move(action));
    control.platform::Control::setAction(&ActionTrampoline<ControlType>::actionWithSender,
                                         *trampoline);
    control.setAssociatedObject("ActionTrampoline", std::move(trampoline));
}

} // namespace driftwood
