#include "platform/audio/au_parameter_node.hpp"

#include "platform/audio/node_state.hpp"

namespace platform {
namespace {

AUParameterObserverToken nextToken() {
    static std::atomic<std::uint64_t> last{0};
    return {last.fetch_add(1, std::memory_order_relaxed) + 1};
}

void collectKeyPath(const detail::NodeState& node, std::string& path) {
    const auto callbacks = node.callbacks.read();
    if (callbacks && callbacks->parent != nullptr) {
        collectKeyPath(*callbacks->parent, path);
        if (!path.empty()) {
            path += '.';
        }
        path += node.identifier;
    }
    // What stands at the top is the tree, which is no part of the path.
}

} // namespace

AUParameterNode::AUParameterNode(std::string identifier, std::string displayName)
    : state_(std::make_shared<detail::NodeState>(std::move(identifier))),
      displayName_(std::move(displayName)) {}

AUParameterNode::~AUParameterNode() {
    // Writes that are still on their way up to here call nothing any more.
    if (state_->callbacks.read()) {
        state_->callbacks.update([](detail::NodeCallbacks& all) { all = {}; });
    }
}

const std::string& AUParameterNode::identifier() const {
    return state_->identifier;
}

std::string AUParameterNode::keyPath() const {
    std::string path;
    collectKeyPath(*state_, path);
    return path.empty() ? identifier() : path;
}

void AUParameterNode::setImplementorValueObserver(ValueObserver observer) {
    state_->callbacks.update([&](auto& all) { all.valueObserver = std::move(observer); });
}

void AUParameterNode::setImplementorValueProvider(ValueProvider provider) {
    state_->callbacks.update([&](auto& all) { all.valueProvider = std::move(provider); });
}

void AUParameterNode::setImplementorStringFromValueCallback(StringFromValue callback) {
    state_->callbacks.update([&](auto& all) { all.stringFromValue = std::move(callback); });
}

void AUParameterNode::setImplementorValueFromStringCallback(ValueFromString callback) {
    state_->callbacks.update([&](auto& all) { all.valueFromString = std::move(callback); });
}

AUParameterObserverToken AUParameterNode::addParameterObserver(ParameterObserver observer) {
    auto added = std::make_shared<detail::Observer>();
    added->token = nextToken();
    added->onValue = std::move(observer);
    state_->callbacks.update([&](auto& all) { all.observers.push_back(added); });
    return added->token;
}

AUParameterObserverToken
AUParameterNode::addParameterAutomationObserver(AutomationObserver observer) {
    auto added = std::make_shared<detail::Observer>();
    added->token = nextToken();
    added->onAutomation = std::move(observer);
    state_->callbacks.update([&](auto& all) { all.observers.push_back(added); });
    return added->token;
}

void AUParameterNode::removeParameterObserver(AUParameterObserverToken token) {
    state_->callbacks.update([&](auto& all) {
        std::erase_if(all.observers, [&](const auto& observer) {
            if (observer->token != token) {
                return false;
            }
            observer->isRemoved.store(true, std::memory_order_release);
            return true;
        });
    });
}

void AUParameterNode::adopt(AUParameterNode& child) {
    child.state_->callbacks.update([&](auto& all) { all.parent = state_; });
}

void AUParameterNode::release(AUParameterNode& child) {
    child.state_->callbacks.update([&](auto& all) {
        if (all.parent == state_) {
            all.parent.reset();
        }
    });
}

} // namespace platform
