#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace platform {

class Control;

/// Anything that a control can send its action to. Controls hold their targets weakly. One thread.
class ActionTarget {
  public:
    ActionTarget() = default;
    ActionTarget(const ActionTarget&) = delete;
    ActionTarget& operator=(const ActionTarget&) = delete;
    virtual ~ActionTarget() = default;

    /// Empty as soon as the object is destroyed, whoever owns it. What is locked from it does not
    /// keep the object alive.
    [[nodiscard]] std::weak_ptr<ActionTarget> weakTarget() const { return self_; }

  protected:
    /// From now on nobody finds the object any more: for the start of a destructor.
    void retire() { self_.reset(); }

  private:
    std::shared_ptr<ActionTarget> self_{this, [](ActionTarget*) {}};
};

/// What a control does when it is used: it sends one action to one target. A widget derives from
/// this beside its widget class. Main thread.
class Control : public ActionTarget {
  public:
    ~Control() override;

    using Action = std::function<void(ActionTarget& target, Control& sender)>;

    /// Sets both at once, in place of what was there. An empty action is sent to nobody.
    void setAction(Action action, ActionTarget& target);

    /// The same with an operation of the target's class as the action: `void operation(Control&)`.
    template<class Target>
    void setAction(void (Target::*operation)(Control&), std::type_identity_t<Target>& target) {
        setAction([operation](ActionTarget& to,
                              Control& sender) { (static_cast<Target&>(to).*operation)(sender); },
                  target);
    }

    /// Null when none is set or when it is gone.
    [[nodiscard]] ActionTarget* target() const { return target_.lock().get(); }

    /// Sends the action to the target, if both are there; true when it was sent. The action may
    /// set another one, and may destroy the control.
    bool sendAction();

    /// Objects that live as long as the control or until another takes their place under the same
    /// key; null takes one away.
    void setAssociatedObject(std::string_view key, std::shared_ptr<void> object);
    [[nodiscard]] std::shared_ptr<void> associatedObject(std::string_view key) const;

  private:
    using Objects = std::map<std::string, std::shared_ptr<void>, std::less<>>;

    Action action_;
    std::weak_ptr<ActionTarget> target_;
    std::unique_ptr<Objects> objects_; // most controls have none
};

} // namespace platform
