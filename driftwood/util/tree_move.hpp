#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace driftwood {

/// An item of a tree, as an outline shows it. Main thread.
class TreeItem {
  public:
    virtual ~TreeItem() = default;
    /// What tells two parents apart; none is equal to none.
    [[nodiscard]] virtual std::optional<std::string> id() const = 0;
};

/// One item moved from a place in a tree to another. A parent that is null is the root. Immutable;
/// copies share the items. Main thread.
struct TreeMove {
    using Item = std::shared_ptr<const TreeItem>;

    Item item;
    Item previousParent;
    std::int64_t previousIndex = 0; ///< within the previous parent, before the move
    Item newParent;
    std::int64_t newIndex = 0; ///< within the new parent, after the move

    friend bool operator==(const TreeMove&, const TreeMove&) = default;
};

/// Whether both are the root, or items of equal identifiers.
[[nodiscard]] bool isSameParent(const TreeMove::Item& a, const TreeMove::Item& b);

/// The moves that undo these, in the order in which they do it.
[[nodiscard]] std::vector<TreeMove> reversed(const std::vector<TreeMove>& moves);

/// The parents, each once, in the order in which they first appear; null for the root.
[[nodiscard]] std::vector<TreeMove::Item> uniquePreviousParents(const std::vector<TreeMove>& moves);
[[nodiscard]] std::vector<TreeMove::Item> uniqueNewParents(const std::vector<TreeMove>& moves);
[[nodiscard]] std::vector<TreeMove::Item> uniqueParents(const std::vector<TreeMove>& moves);
[[nodiscard]] bool hasRootParents(const std::vector<TreeMove>& moves);

/// Moves that were all recorded against the tree as it was before the first, rewritten so that each
/// one's previous index holds after the moves before it. Quadratic. An index that overflows stops
/// the program.
[[nodiscard]] std::vector<TreeMove> offset(std::vector<TreeMove> moves);

} // namespace driftwood
