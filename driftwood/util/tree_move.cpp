#include "driftwood/util/tree_move.hpp"

#include "core/fatal.hpp"

#include <algorithm>
#include <limits>
#include <utility>

namespace driftwood {
namespace {

void addOnce(std::vector<TreeMove::Item>& parents, const TreeMove::Item& parent) {
    if (std::ranges::none_of(parents, [&](const auto& p) { return isSameParent(p, parent); })) {
        parents.push_back(parent);
    }
}

/// Whether the later move finds its item one place further up because the earlier one was made.
bool movesUp(const TreeMove& earlier, const TreeMove& later) {
    if (!(earlier.previousIndex < later.previousIndex)) {
        return false;
    }
    const bool staysInside = isSameParent(earlier.previousParent, earlier.newParent);
    if (staysInside && isSameParent(later.newParent, earlier.newParent) &&
        earlier.previousIndex < earlier.newIndex && later.previousIndex < later.newIndex) {
        return true;
    }
    return isSameParent(earlier.previousParent, later.previousParent) &&
           !isSameParent(later.previousParent, later.newParent);
}

} // namespace

bool isSameParent(const TreeMove::Item& a, const TreeMove::Item& b) {
    return a == nullptr || b == nullptr ? a == b : a->id() == b->id();
}

std::vector<TreeMove> reversed(const std::vector<TreeMove>& moves) {
    std::vector<TreeMove> result(moves.rbegin(), moves.rend());
    for (TreeMove& move : result) {
        std::swap(move.previousParent, move.newParent);
        std::swap(move.previousIndex, move.newIndex);
    }
    return result;
}

std::vector<TreeMove::Item> uniquePreviousParents(const std::vector<TreeMove>& moves) {
    std::vector<TreeMove::Item> parents;
    for (const TreeMove& move : moves) {
        addOnce(parents, move.previousParent);
    }
    return parents;
}

std::vector<TreeMove::Item> uniqueNewParents(const std::vector<TreeMove>& moves) {
    std::vector<TreeMove::Item> parents;
    for (const TreeMove& move : moves) {
        addOnce(parents, move.newParent);
    }
    return parents;
}

std::vector<TreeMove::Item> uniqueParents(const std::vector<TreeMove>& moves) {
    std::vector<TreeMove::Item> parents;
    for (const TreeMove& move : moves) {
        addOnce(parents, move.previousParent);
        addOnce(parents, move.newParent);
    }
    return parents;
}

bool hasRootParents(const std::vector<TreeMove>& moves) {
    return std::ranges::any_of(moves, [](const TreeMove& move) {
        return move.previousParent == nullptr || move.newParent == nullptr;
    });
}

std::vector<TreeMove> offset(std::vector<TreeMove> moves) {
    for (std::size_t a = 0; a < moves.size(); ++a) {
        for (std::size_t b = a + 1; b < moves.size(); ++b) {
            if (movesUp(moves[a], moves[b])) {
                if (moves[b].previousIndex == std::numeric_limits<std::int64_t>::min()) {
                    core::fatal("The index of a move in a tree overflows");
                }
                --moves[b].previousIndex;
            }
        }
    }
    return moves;
}

} // namespace driftwood
