#include "platform/audio/au_parameter_tree.hpp"

#include "platform/audio/parameter_attributes.hpp"

namespace platform {

AUParameterGroup::AUParameterGroup(std::string identifier, std::string name, Children children)
    : AUParameterNode(std::move(identifier), std::move(name)), children_(std::move(children)) {
    for (const auto& child : children_) {
        adopt(*child);
    }
}

AUParameterGroup::~AUParameterGroup() {
    for (const auto& child : children_) {
        release(*child);
    }
}

std::vector<std::shared_ptr<AUParameter>> AUParameterGroup::allParameters() const {
    std::vector<std::shared_ptr<AUParameter>> all;
    for (const auto& child : children_) {
        if (auto parameter = std::dynamic_pointer_cast<AUParameter>(child)) {
            all.push_back(std::move(parameter));
        } else if (const auto* const group = dynamic_cast<const AUParameterGroup*>(child.get())) {
            const auto inner = group->allParameters();
            all.insert(all.end(), inner.begin(), inner.end());
        }
    }
    return all;
}

std::shared_ptr<AUParameterNode> AUParameterGroup::nodeWithKeyPath(std::string_view path) const {
    // An identifier may hold points itself, so it is compared as a whole.
    for (const auto& child : children_) {
        const std::string_view name = child->identifier();
        if (path == name) {
            return child;
        }
        const auto* const group = dynamic_cast<const AUParameterGroup*>(child.get());
        if (group != nullptr && path.starts_with(name) &&
            path.substr(name.size()).starts_with('.')) {
            if (auto found = group->nodeWithKeyPath(path.substr(name.size() + 1))) {
                return found;
            }
        }
    }
    return nullptr;
}

std::shared_ptr<AUParameter> AUParameterTree::createParameter(
    std::string identifier, std::string name, AUParameterAddress address, AUValue min, AUValue max,
    AudioUnitParameterUnit unit, std::string unitName, AudioUnitParameterOptions flags,
    std::optional<std::vector<std::string>> valueStrings,
    std::optional<std::vector<AUParameterAddress>> dependentParameters) {
    return std::shared_ptr<AUParameter>(new AUParameter(
        {std::move(identifier), std::move(name), address, min, max, unit, std::move(unitName),
         flags, std::move(valueStrings), std::move(dependentParameters)}));
}

std::shared_ptr<AUParameterGroup>
AUParameterTree::createGroup(std::string identifier, std::string name, Children children) {
    return std::shared_ptr<AUParameterGroup>(
        new AUParameterGroup(std::move(identifier), std::move(name), std::move(children)));
}

std::shared_ptr<AUParameterTree> AUParameterTree::createTree(Children children) {
    return std::shared_ptr<AUParameterTree>(new AUParameterTree(std::move(children)));
}

AUParameterTree::AUParameterTree(Children children)
    : AUParameterGroup({}, {}, std::move(children)) {
    for (auto& parameter : allParameters()) {
        const auto address = parameter->address();
        byAddress_.try_emplace(address, std::move(parameter));
    }
}

std::shared_ptr<AUParameter>
AUParameterTree::parameterWithAddress(AUParameterAddress address) const {
    const auto found = byAddress_.find(address);
    return found != byAddress_.end() ? found->second : nullptr;
}

} // namespace platform
