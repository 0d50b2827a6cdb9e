#pragma once

#include "core/fatal.hpp"
#include "core/streams.hpp"
#include "platform/ui/cells/control.hpp"

#include <concepts>
#include <memory>
#include <utility>

namespace driftwood {

/// A control whose events can be followed as a stream.
template<class T>
concept CombineCompatible = std::derived_from<T, platform::Control>;

/// The events of a control as a stream of the control itself, never null. It makes itself the
/// target of the control, in place of the former one; it gets nothing any more when somebody else
/// becomes the target after it. The stream completes when the publisher is destroyed, as a rule in
/// the course of its control's destruction. Main thread.
template<CombineCompatible ControlType>
class NSControlPublisher final : public platform::ActionTarget {
  public:
    explicit NSControlPublisher(ControlType& control)
        : control_(&control), alive_(control.weakTarget()) {
        control.platform::Control::setAction(&NSControlPublisher::controlActionWithSender, *this);
    }
    ~NSControlPublisher() override { subject_.finish(); }

    /// Null when the control is gone.
    [[nodiscard]] ControlType* control() const { return alive_.expired() ? nullptr : control_; }
    [[nodiscard]] core::Subject<ControlType*>& subject() { return subject_; }

    void controlActionWithSender(platform::Control&) {
        if (ControlType* const sender = control()) {
            subject_.send(sender);
        }
    }

  private:
    ControlType* control_;
    std::weak_ptr<platform::ActionTarget> alive_;
    core::Subject<ControlType*> subject_;
};

/// The control's one publisher, made at the first call. Asking for it again as another type stops
/// the program.
template<CombineCompatible ControlType>
[[nodiscard]] NSControlPublisher<ControlType>& controlEventPublisher(ControlType& control) {
    using Publisher = NSControlPublisher<ControlType>;
    constexpr auto key = "PublisherHelperKey";
    if (const auto attached = control.associatedObject(key)) {
        auto* const target = static_cast<platform::ActionTarget*>(attached.get());
        auto* const publisher = dynamic_cast<Publisher*>(target);
        if (publisher == nullptr) {
            core::fatal("a control's events are published as another type already");
        }
        return *publisher;
    }
    const auto made = std::make_shared<Publisher>(control);
    control.setAssociatedObject(key, std::shared_ptr<platform::ActionTarget>(made));
    return *made;
}

} // namespace driftwood
