#pragma once

#include "platform/audio/au_parameter.hpp"

#include <string_view>
#include <unordered_map>

namespace platform {

/// Some parameters and groups under one name. Its children live as long as it does, and beyond
/// where others hold them; then they stand alone.
class AUParameterGroup : public AUParameterNode {
  public:
    using Children = std::vector<std::shared_ptr<AUParameterNode>>;

    ~AUParameterGroup() override;

    [[nodiscard]] const Children& children() const { return children_; }
    /// The parameters of this group and of the groups in it, in order.
    [[nodiscard]] std::vector<std::shared_ptr<AUParameter>> allParameters() const;
    /// The node at a key path from here ("filter.cutoff"), the first where several have it; null
    /// where there is none.
    [[nodiscard]] std::shared_ptr<AUParameterNode> nodeWithKeyPath(std::string_view path) const;

  protected:
    AUParameterGroup(std::string identifier, std::string name, Children children);

  private:
    friend class AUParameterTree;
    const Children children_;
};

/// All parameters of an audio unit. It cannot be changed; an audio unit whose parameters change
/// gets a new tree. A node placed into a second tree or group reports to the newer one only.
class AUParameterTree final : public AUParameterGroup {
  public:
    /// The upper bound must not be below the lower one. The value starts at the lower bound.
    static std::shared_ptr<AUParameter>
    createParameter(std::string identifier, std::string name, AUParameterAddress address,
                    AUValue min, AUValue max, AudioUnitParameterUnit unit, std::string unitName,
                    AudioUnitParameterOptions flags,
                    std::optional<std::vector<std::string>> valueStrings,
                    std::optional<std::vector<AUParameterAddress>> dependentParameters);
    static std::shared_ptr<AUParameterGroup> createGroup(std::string identifier, std::string name,
                                                         Children children);
    static std::shared_ptr<AUParameterTree> createTree(Children children);

    /// The first parameter with that address, or null. Any thread.
    [[nodiscard]] std::shared_ptr<AUParameter>
    parameterWithAddress(AUParameterAddress address) const;

  private:
    explicit AUParameterTree(Children children);
    std::unordered_map<AUParameterAddress, std::shared_ptr<AUParameter>> byAddress_;
};

} // namespace platform
