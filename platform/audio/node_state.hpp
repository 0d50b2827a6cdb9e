#pragma once

#include "platform/audio/au_parameter_node.hpp"
#include "platform/audio/snapshot.hpp"

#include <atomic>

namespace platform::detail {

/// One observer of either kind; the other function is empty.
struct Observer {
    AUParameterObserverToken token;
    AUParameterNode::ParameterObserver onValue;
    AUParameterNode::AutomationObserver onAutomation;
    mutable std::atomic<bool> isRemoved{false};
};

/// Everything a write has to know about a node. A node without any of it, and without a parent,
/// has none.
struct NodeCallbacks {
    AUParameterNode::ValueObserver valueObserver;
    AUParameterNode::ValueProvider valueProvider;
    AUParameterNode::StringFromValue stringFromValue;
    AUParameterNode::ValueFromString valueFromString;
    std::vector<std::shared_ptr<const Observer>> observers;
    std::shared_ptr<NodeState> parent;
};

/// The part of a node that its children and running callbacks keep alive.
struct NodeState {
    explicit NodeState(std::string identifierOfNode) : identifier(std::move(identifierOfNode)) {}
    const std::string identifier;
    Snapshot<NodeCallbacks> callbacks;
};

/// Calls `visit(callbacks)` for a node and those above it, until a call returns true. The
/// callbacks are safe from changes for as long as the visit lasts.
template<class Visit>
void visitUpwards(const NodeState& node, Visit&& visit) {
    const auto callbacks = node.callbacks.read();
    if (!callbacks || visit(*callbacks) || callbacks->parent == nullptr) {
        return;
    }
    visitUpwards(*callbacks->parent, visit);
}

} // namespace platform::detail
