#pragma once

#include "core/streams.hpp"
#include "platform/controls/control.hpp"

#include <concepts>
#include <memory>
#include <typeindex>
#include <vector>

namespace driftwood {

/// A control whose events can be followed as a stream.
template<class T>
concept CombineCompatible = std::derived_from<T, platform::Control>;

/// The events of a control as a stream of the control itself, never null. The publisher makes
/// itself the target of the control, in place of the former one; it gets nothing any more when
/// somebody else becomes the target after it. The stream completes when the publisher is destroyed,
/// as a rule in the course of its control's destruction. Each control has one publisher, whatever
/// type it is asked through: those of two types are equal. Main thread.
template<CombineCompatible ControlType>
class NSControlPublisher;

class ControlEvents;

namespace internal {

/// A publisher as it is seen through one type of its control.
class ControlFacet {
  public:
    ControlFacet(std::type_index type, const platform::Control& control,
                 const platform::ActionTarget& publisher)
        : type_(type), publisher_(&publisher), alive_(control.weakTarget()) {}
    ControlFacet(const ControlFacet&) = delete;
    ControlFacet& operator=(const ControlFacet&) = delete;
    virtual ~ControlFacet() = default;

    [[nodiscard]] std::type_index type() const { return type_; }
    [[nodiscard]] const platform::ActionTarget* publisher() const { return publisher_; }
    [[nodiscard]] bool isControlThere() const { return !alive_.expired(); }
    virtual void send() = 0;
    virtual void finish() = 0;

  private:
    std::type_index type_;
    const platform::ActionTarget* publisher_;
    std::weak_ptr<platform::ActionTarget> alive_;
};

} // namespace internal

template<CombineCompatible ControlType>
class NSControlPublisher final : public internal::ControlFacet {
  public:
    /// Null when the control is gone.
    [[nodiscard]] ControlType* control() const { return isControlThere() ? control_ : nullptr; }
    [[nodiscard]] core::Subject<ControlType*>& subject() { return subject_; }

    template<class Other>
    friend bool operator==(const NSControlPublisher& a, const NSControlPublisher<Other>& b) {
        return a.publisher() == b.publisher();
    }

  private:
    friend class ControlEvents;

    NSControlPublisher(ControlType& control, const platform::ActionTarget& publisher)
        : ControlFacet(typeid(ControlType), control, publisher), control_(&control) {}
    void send() override {
        if (ControlType* const sender = control()) {
            subject_.send(sender);
        }
    }
    void finish() override { subject_.finish(); }

    ControlType* control_;
    core::Subject<ControlType*> subject_;
};

/// The publisher itself: the target of its control. Main thread.
class ControlEvents final : public platform::ActionTarget {
  public:
    explicit ControlEvents(platform::Control& control) {
        control.platform::Control::setAction(&ControlEvents::controlActionWithSender, *this);
    }
    ~ControlEvents() override {
        for (const auto& facet : facets_) {
            facet->finish();
        }
    }

    template<CombineCompatible ControlType>
    [[nodiscard]] NSControlPublisher<ControlType>& through(ControlType& control) {
        for (const auto& facet : facets_) {
            if (facet->type() == typeid(ControlType)) {
                return static_cast<NSControlPublisher<ControlType>&>(*facet);
            }
        }
        auto* const made = new NSControlPublisher<ControlType>(control, *this);
        facets_.emplace_back(made);
        return *made;
    }

    void controlActionWithSender(platform::Control&) {
        const auto facets = facets_; // the control, and so this, may go meanwhile
        for (const auto& facet : facets) {
            facet->send();
        }
    }

  private:
    std::vector<std::shared_ptr<internal::ControlFacet>> facets_;
};

/// The control's one publisher, made at the first call.
template<CombineCompatible ControlType>
[[nodiscard]] NSControlPublisher<ControlType>& controlEventPublisher(ControlType& control) {
    constexpr auto key = "PublisherHelperKey";
    auto events = std::static_pointer_cast<ControlEvents>(control.associatedObject(key));
    if (events == nullptr) {
        events = std::make_shared<ControlEvents>(control);
        control.setAssociatedObject(key, events);
    }
    return events->through(control);
}

} // namespace driftwood
