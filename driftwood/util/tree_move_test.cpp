#include "driftwood/util/tree_move.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>

namespace driftwood {
namespace {

class Node final : public TreeItem {
  public:
    explicit Node(std::optional<std::string> id) : id_(std::move(id)) {}
    std::optional<std::string> id() const override { return id_; }

  private:
    std::optional<std::string> id_;
};

TreeMove::Item node(std::optional<std::string> id) {
    return std::make_shared<Node>(std::move(id));
}

TEST(TreeMove, ParentsAreTheSameByIdentifier) {
    const auto a = node("a");
    const struct {
        TreeMove::Item one;
        TreeMove::Item other;
        bool areSame;
    } cases[] = {{nullptr, nullptr, true}, {a, nullptr, false},  {a, node("a"), true},
                 {a, node("b"), false},    {a, node({}), false}, {node({}), node({}), true}};
    for (const auto& [one, other, areSame] : cases) {
        EXPECT_EQ(isSameParent(one, other), areSame);
        EXPECT_EQ(isSameParent(other, one), areSame);
    }
}

TEST(TreeMove, LaterMovesCountWithTheEarlierOnes) {
    const auto a = node("a");
    const auto b = node("b");
    const auto root = TreeMove::Item();
    const struct {
        const char* what;
        TreeMove earlier;
        TreeMove later;
        std::int64_t expected;
    } cases[] = {
        {"both leave, the upper first", {{}, a, 2, b, 0}, {{}, a, 5, b, 0}, 4},
        {"both leave, the lower first", {{}, a, 5, b, 0}, {{}, a, 2, b, 0}, 2},
        {"both down within one", {{}, a, 1, a, 4}, {{}, a, 2, a, 5}, 1},
        {"the first up within one", {{}, a, 3, a, 1}, {{}, a, 4, a, 6}, 4},
        {"the second up within one", {{}, a, 1, a, 4}, {{}, a, 3, a, 2}, 3},
        {"down within one, then out of it", {{}, a, 1, a, 4}, {{}, a, 3, root, 0}, 2},
        {"out, then down within", {{}, a, 1, b, 0}, {{}, a, 3, a, 5}, 3},
        {"down within, then in from elsewhere", {{}, a, 0, a, 2}, {{}, b, 1, a, 3}, 0},
        {"in from elsewhere, then down within", {{}, a, 1, b, 4}, {{}, b, 2, b, 5}, 2},
        {"other parents", {{}, a, 1, a, 4}, {{}, b, 3, root, 0}, 3},
    };
    for (const auto& [what, earlier, later, expected] : cases) {
        const auto result = offset({earlier, later});
        EXPECT_EQ(result[0], earlier) << what;
        EXPECT_EQ(result[1].previousIndex, expected) << what;
    }
    const std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(offset({{{}, a, lowest, b, 0}, {{}, a, lowest + 1, b, 0}})[1].previousIndex, lowest);
}

TEST(TreeMove, SummariesKeepTheOrderInWhichMovesNameParents) {
    const auto a = node("a");
    const auto b = node("b");
    const std::vector<TreeMove> moves{
        {{}, b, 0, a, 0}, {{}, node("b"), 1, nullptr, 0}, {{}, a, 0, node("a"), 2}};
    EXPECT_THAT(uniquePreviousParents(moves), testing::ElementsAre(b, a));
    EXPECT_THAT(uniqueNewParents(moves), testing::ElementsAre(a, nullptr));
    EXPECT_THAT(uniqueParents(moves), testing::ElementsAre(b, a, nullptr));
    EXPECT_TRUE(hasRootParents(moves));
    EXPECT_FALSE(hasRootParents({moves[0], moves[2]}));
}

/// Two lists of items, as moves see them.
struct Lists {
    TreeMove::Item from = node("from");
    TreeMove::Item to = node("to");
    std::map<std::string, std::vector<TreeMove::Item>> items;

    void apply(const TreeMove& move) {
        auto& source = items[*move.previousParent->id()];
        const auto found = source.begin() + move.previousIndex;
        ASSERT_EQ(*found, move.item);
        source.erase(found);
        auto& target = items[*move.newParent->id()];
        target.insert(target.begin() + move.newIndex, move.item);
    }
};

TEST(TreeMove, BatchesOutOfOneParentReplayAndAreUndone) {
    std::mt19937 random(7);
    for (int round = 0; round < 500; ++round) {
        Lists lists;
        auto& from = lists.items["from"];
        for (unsigned i = 0; i < 2 + random() % 12; ++i) {
            from.push_back(node(std::to_string(i)));
        }
        std::vector<std::int64_t> picked(from.size());
        std::iota(picked.begin(), picked.end(), 0);
        std::ranges::shuffle(picked, random);
        picked.resize(1 + random() % picked.size());

        // All recorded against the lists as they are now, each put behind the ones before.
        std::vector<TreeMove> moves;
        std::vector<TreeMove::Item> expected;
        for (const std::int64_t index : picked) {
            const auto& item = from[static_cast<std::size_t>(index)];
            moves.push_back({item, lists.from, index, lists.to, std::ssize(expected)});
            expected.push_back(item);
        }
        const Lists before = lists;
        const auto batch = offset(moves);
        for (const TreeMove& move : batch) {
            ASSERT_NO_FATAL_FAILURE(lists.apply(move));
        }
        EXPECT_EQ(lists.items["to"], expected);
        for (const TreeMove& move : reversed(batch)) {
            ASSERT_NO_FATAL_FAILURE(lists.apply(move));
        }
        EXPECT_EQ(lists.items["from"], before.items.at("from"));
    }
}

} // namespace
} // namespace driftwood
