#pragma once

#include "core/snapshot.hpp"
#include "platform/audio/au_parameter_node.hpp"

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

/// The callbacks of a node and of those above it, held against changes; `inner` is the level below.
struct CallbackChain {
    const NodeCallbacks& callbacks;
    const CallbackChain* inner;
};

/// Calls `visit(outermost)` once with the whole chain, or not at all when there is none.
template<class Visit>
void withCallbacks(const NodeState& node, const CallbackChain* inner, Visit&& visit) {
    const auto callbacks = node.callbacks.read();
    if (!callbacks) {
        if (inner != nullptr) {
            visit(*inner);
        }
        return;
    }
    const CallbackChain chain{*callbacks, inner};
    if (callbacks->parent == nullptr) {
        visit(chain);
    } else {
        withCallbacks(*callbacks->parent, &chain, visit);
    }
}

} // namespace platform::detail
