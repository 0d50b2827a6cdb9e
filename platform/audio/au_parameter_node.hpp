#pragma once

#include "platform/audio/au_types.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace platform {

class AUParameter;

namespace detail {
struct NodeState;
}

/// What a parameter, a group and a tree have in common: an identifier, callbacks that the audio
/// unit implements, and observers.
///
/// Callbacks and observers of a node serve all parameters below it. They are called on the thread
/// that writes the parameter, without locks, so they must do what that thread may do. They may be
/// set, added and removed on any thread at any time, also from within a callback; that takes a
/// lock and memory, so it is not for an audio thread. When such a call returns, the former
/// callback is neither running on another thread nor will it run again; only when the call comes
/// from within a callback itself it does not wait for other threads.
class AUParameterNode {
  public:
    using ValueObserver = std::function<void(const AUParameter&, AUValue)>;
    using ValueProvider = std::function<AUValue(const AUParameter&)>;
    /// The value may be missing.
    using StringFromValue = std::function<std::string(const AUParameter&, const AUValue*)>;
    using ValueFromString = std::function<AUValue(const AUParameter&, const std::string&)>;

    using ParameterObserver = std::function<void(AUParameterAddress, AUValue)>;
    using AutomationObserver = std::function<void(const AUParameterAutomationEvent&)>;

    AUParameterNode(const AUParameterNode&) = delete;
    AUParameterNode& operator=(const AUParameterNode&) = delete;
    virtual ~AUParameterNode();

    [[nodiscard]] const std::string& identifier() const;
    [[nodiscard]] const std::string& displayName() const { return displayName_; }

    /// The identifiers from below the tree down to this node, joined by points. Any thread.
    [[nodiscard]] std::string keyPath() const;

    /// What the audio unit implements. Of several nodes on the way from a parameter up to its tree
    /// the one nearest to the parameter counts. An empty function takes the callback away.
    ///
    /// Gets every write to a parameter, whoever made it and of whatever event type.
    void setImplementorValueObserver(ValueObserver observer);
    /// Gives a parameter's value in place of the one that was last written.
    void setImplementorValueProvider(ValueProvider provider);
    void setImplementorStringFromValueCallback(StringFromValue callback);
    void setImplementorValueFromStringCallback(ValueFromString callback);

    /// Adds an observer of values; it gets every write but those that carry its own token.
    AUParameterObserverToken addParameterObserver(ParameterObserver observer);
    /// As above, with host time and event type: what a host needs to record automation.
    AUParameterObserverToken addParameterAutomationObserver(AutomationObserver observer);
    /// Takes an observer of either kind away. A token from elsewhere does nothing. Removed within
    /// a notification, an observer that has not had it yet does not get it.
    void removeParameterObserver(AUParameterObserverToken token);

  protected:
    AUParameterNode(std::string identifier, std::string displayName);

    /// Makes `child` stand below this node, and lets it go again if it still does.
    void adopt(AUParameterNode& child);
    void release(AUParameterNode& child);

    const std::shared_ptr<detail::NodeState> state_;

  private:
    const std::string displayName_;
};

} // namespace platform
