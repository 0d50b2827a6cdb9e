#include "fernhorn/model/parameter_settings.hpp"
#include "fernhorn/testing/test_parameter.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace fernhorn {
namespace {

using testing::ElementsAre;
using testing::Pair;

class LastValues final : public FernAudioUnit {
  public:
    void setParameter(platform::AUParameterAddress address, float value) override {
        last.at(address) = value;
    }
    std::array<float, 4> last{-1, -1, -1, -1};
};

class Settings final : public ParameterSettings {
  public:
    [[nodiscard]] int stateVersion() const override { return 2; }
    void migrate(ParameterState& older) const override {
        older.values["mix"] = older.values["wet"] / 100;
        older.values.erase("wet");
    }
};

class ParameterStateTest : public testing::Test {
  protected:
    core::MainQueue queue;
    std::shared_ptr<AudioParameter> mix = make({.address = 1, .identifier = "mix"});
    std::shared_ptr<AudioParameter> tone =
        make({.address = 2, .identifier = "tone", .range = {20, 20'000}, .defaultValue = 440});
    std::shared_ptr<AudioParameter> page =
        make({.address = 3, .identifier = "page", .hostAccess = HostAccess::hidden});
    std::shared_ptr<Settings> settings = std::make_shared<Settings>();
    std::shared_ptr<LastValues> unit = std::make_shared<LastValues>();

    std::shared_ptr<AudioParameter> make(ParameterDescription description) {
        description.queue = &queue;
        return std::make_shared<AudioParameter>(std::move(description));
    }
    void connect() {
        settings->configureAudioUnit(unit);
        settings->setupParameterTreeListeners();
    }
    void SetUp() override { settings->setupParameters({mix, tone, page}); }
};

TEST_F(ParameterStateTest, ComesBackExactlyAndReachesEverySide) {
    for (const auto& [when, isConnectedFirst] : {std::pair{"connected", true}, {"later", false}}) {
        SCOPED_TRACE(when);
        const ParameterState saved{
            .version = 2,
            .values = {{"mix", 0.1F}, {"page", 1}, {"from a later version", 3.25F}},
            .texts = {{"preset", "Frühling \"1\""}}};
        unit = std::make_shared<LastValues>();
        if (isConnectedFirst) {
            connect();
        }
        std::vector<float> heard;
        const auto host = mix->auParameter()->addParameterObserver(
            [&](auto, float value) { heard.push_back(value); });
        ASSERT_TRUE(settings->restore(*ParameterState::fromText(saved.text()), host));
        mix->auParameter()->removeParameterObserver(host);
        EXPECT_TRUE(heard.empty()) << "the originator";
        auto expected = saved;
        expected.values["tone"] = 440; // missing: the default
        EXPECT_EQ(settings->state(), expected) << "before anything is drained";
        if (!isConnectedFirst) {
            connect();
        }
        EXPECT_THAT(unit->last, ElementsAre(-1, 0.1F, 440, -1)) << "hidden: nothing to process";
        queue.drain();
        EXPECT_EQ(mix->value(), 0.1F);
        EXPECT_EQ(page->value(), 1);
        EXPECT_EQ(settings->stateText("preset"), "Frühling \"1\"");
        EXPECT_EQ(settings->parameterWithIdentifier("page"), page);
        EXPECT_EQ(settings->parameterWithAddress(2), tone);
        EXPECT_EQ(unit->parameterTree()->parameterWithAddress(3), nullptr) << "hosts do not see it";
        ASSERT_TRUE(settings->restore({.version = 2}));
        queue.drain();
        EXPECT_EQ(mix->value(), 0);
    }
}

TEST_F(ParameterStateTest, OlderVersionsAreMigratedAndNewerOnesRefused) {
    connect();
    ASSERT_TRUE(settings->restore({.version = 1, .values = {{"wet", 50}}}));
    EXPECT_EQ(settings->state().values.at("mix"), 0.5F);
    EXPECT_FALSE(settings->restore({.version = 3, .values = {{"mix", 1}}}));
    EXPECT_EQ(settings->state().values.at("mix"), 0.5F);
}

TEST(ParameterStateText, RefusesNonsenseWhole) {
    const std::string good = R"({"version": 1, "parameters": {"a": 1}, "of tomorrow": [1]})";
    ASSERT_TRUE(ParameterState::fromText(good).has_value());
    const std::string head = R"({"version": 1, "parameters": )";
    const std::string versions[] = {"0", "-1", "1.5", "\"1\"", "99999999999"};
    const std::string rests[] = {"[1]}",
                                 R"({"a": "1"}})",
                                 R"({"a": null}})",
                                 R"({"a": 1e99}})",
                                 R"({"a": 1}, "texts": {"b": 2}})",
                                 R"({"a": 1}, "texts": "b"})"};
    std::vector<std::string> bad{"",
                                 "nonsense",
                                 "[]",
                                 R"({"parameters": {}})",
                                 R"({"version": 1})",
                                 good.substr(0, good.size() - 1),
                                 good + "x",
                                 std::string(100'000, '[')};
    for (const auto& version : versions) {
        bad.push_back("{\"version\": " + version + R"(, "parameters": {}})");
    }
    for (const auto& rest : rests) {
        bad.push_back(head + rest);
    }
    for (const auto& text : bad) {
        EXPECT_FALSE(ParameterState::fromText(text).has_value()) << text.substr(0, 60);
    }
    for (const float value : {0.1F, 1e-45F, 3.4028235e38F, -0.0F, 16777217.0F}) {
        const ParameterState state{.values = {{"a", value}}, .texts = {{"\xff", "\xc3"}}};
        EXPECT_EQ(ParameterState::fromText(state.text())->values.at("a"), value);
    }
}

} // namespace
} // namespace fernhorn
