#include "driftwood/style/state_images.hpp"
#include "driftwood/testing/asset_source_fake.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <unordered_set>
#include <vector>

namespace driftwood {
namespace {

using State = StyledControlState;

TEST(StyledControlState, BehavesAsASet) {
    State state = State::on | State::highlighted;
    EXPECT_EQ(state.rawValue(), 40);
    EXPECT_FALSE(state.insert(State::on));
    EXPECT_TRUE(state.insert(State::on | State::default_)) << "one of the two is new";
    EXPECT_TRUE(state.remove(State::on | State::mixed)) << "one of the two was there";
    EXPECT_FALSE(state.remove(State::mixed));
    EXPECT_EQ(state, State::default_ | State::highlighted);
    EXPECT_TRUE(state.contains({})) << "no flags are in every set";
    EXPECT_FALSE(state.containsAny({}));
    EXPECT_TRUE(State(State::on).isSubset(State::on | State::mixed));
    EXPECT_FALSE(State(State::on).isSuperset(State::on | State::mixed));

    std::unordered_set<State> states;
    for (int a = 0; a < 256; ++a) {
        states.insert(State(a));
        for (int b = 0; b < 256; b += 5) {
            const State x(a);
            const State y(b);
            EXPECT_EQ((x - y) | (x & y), x);
            EXPECT_EQ((x ^ y) | (x & y), x | y);
            EXPECT_TRUE((x - y).isDisjoint(y));
            EXPECT_EQ(x.isSubset(y), (x | y) == y);
            EXPECT_EQ((x | y).count() + (x & y).count(), x.count() + y.count());
        }
    }
    EXPECT_EQ(states.size(), 256U);
}

TEST(StyledControlState, NamesItsFlagsInOrder) {
    const std::map<int, std::string> texts{
        {0, ""},
        {41, "default, highlighted, on"},
        {144, "focused, invalid"},
        {255, "default, disabled, selected, highlighted, focused, on, mixed, invalid"},
        {256, ""},
        {-1, "default, disabled, selected, highlighted, focused, on, mixed, invalid"}};
    for (const auto& [raw, text] : texts) {
        EXPECT_EQ(State(raw).description(), text) << raw;
    }
}

/// The rule, step by step, with every answer that it allows.
std::vector<Image> allowedMatches(const std::map<int, Image>& table, int state) {
    if (const auto exact = table.find(state); exact != table.end()) {
        return {exact->second};
    }
    std::vector<Image> best;
    int bestCount = -1;
    for (const auto& [key, image] : table) {
        if (state == 0 || (key & state) != key) {
            continue;
        }
        const int count = std::popcount(static_cast<unsigned>(key & ~1));
        if (count > bestCount) {
            best.clear();
            bestCount = count;
        }
        if (count == bestCount) {
            best.push_back(image);
        }
    }
    if (best.empty()) {
        const auto fallback = table.find(1);
        best.push_back(fallback == table.end() ? Image() : fallback->second);
    }
    return best;
}

TEST(StateImages, FindsAMatchThatTheRuleAllowsInEveryStateOfRandomTables) {
    std::mt19937 random(1);
    for (int round = 0; round < 4000; ++round) {
        std::vector<int> keys;
        // Few flags make near misses and ties likely, all of them make exact matches likely.
        const int flags = round % 3 == 0 ? 255 : static_cast<int>(random() % 256);
        const auto size = random() % 12;
        for (std::size_t i = 0; i < size; ++i) {
            keys.push_back(static_cast<int>(random()) & flags);
        }
        StateImages table;
        StateImages backwards;
        std::map<int, Image> plain;
        for (const int key : keys) {
            plain[key] = fakeAssets().image(std::to_string(key));
            table.set(State(key), plain[key]);
        }
        for (auto entry = plain.rbegin(); entry != plain.rend(); ++entry) {
            backwards.set(State(entry->first), entry->second);
        }
        ASSERT_EQ(table, backwards) << "the order of entering must not matter";
        for (int state = 0; state < 256; ++state) {
            const auto allowed = allowedMatches(plain, state);
            const Image& found = table.image(State(state));
            ASSERT_TRUE(std::ranges::find(allowed, found) != allowed.end())
                << "state " << state << " found " << nameOf(found);
        }
    }
}

TEST(StateImages, DecidesTiesByThePressThenByTheLargerValue) {
    fakeAssets();
    const StateImages table{{State::selected, "selected"},
                            {State::highlighted, "highlighted"},
                            {State::on, "on"},
                            {State::default_ | State::on, "on by default"}};
    EXPECT_EQ(nameOf(table.image(State::on | State::highlighted)), "highlighted");
    EXPECT_EQ(nameOf(table.image(State::selected | State::highlighted)), "highlighted");
    EXPECT_EQ(nameOf(table.image(State::selected | State::on)), "on");
    EXPECT_EQ(nameOf(table.image(State(5) | State::on)), "on by default");
}

TEST(StateImages, AMissingAssetIsAMissingEntry) {
    fakeAssets().missingImages = {"gone"};
    StateImages table{{State::default_, "plain"}, {State::on, "gone"}, {State::mixed, "some"}};
    fakeAssets().missingImages.clear();
    EXPECT_EQ(table.size(), 2U);
    EXPECT_EQ(nameOf(table.image(State(33))), "plain");
    EXPECT_EQ(nameOf(table.image({})), "plain");
    table.set(State::default_, {});
    EXPECT_FALSE(table.image(State(33)));
    EXPECT_FALSE(StateImages().image(State(1)));
}

} // namespace
} // namespace driftwood
