#include "fernhorn/model/parameter_settings.hpp"

#include "core/bundle_information.hpp"
#include "fernhorn/model/parameter_gesture.hpp"
#include "fernhorn/testing/recording_unit.hpp"
#include "fernhorn/testing/test_parameter.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <limits>
#include <thread>

namespace fernhorn {
namespace {

using testing::ElementsAre;
using testing::Pair;

class Settings final : public ParameterSettings {
  public:
    void updateDependentValues(platform::AUParameterAddress address, float value) override {
        dependents.emplace_back(address, value);
    }
    void hashAdditionalValues(Hasher& into) const override { into.combine(additional); }
    std::vector<std::pair<platform::AUParameterAddress, float>> dependents;
    std::string additional;
};

class ParameterSettingsTest : public testing::Test {
  protected:
    core::MainQueue queue;
    std::shared_ptr<Settings> settings = std::make_shared<Settings>();
    std::shared_ptr<RecordingUnit> unit = std::make_shared<RecordingUnit>();
    std::shared_ptr<AudioParameter> plain =
        TestParameter{.address = 1, .defaultValue = 0.5F}.on(queue);
    std::shared_ptr<AudioParameter> meta =
        TestParameter{.address = 2, .dependents = {{1}}}.on(queue);
    std::shared_ptr<AudioParameter> named =
        TestParameter{.address = 3, .valueStrings = {{"Off", "On"}}, .dependents = {{}}}.on(queue);
    std::shared_ptr<AudioParameter> twin = TestParameter{.address = 1}.on(queue);

    void SetUp() override { settings->setupParameters({plain, meta, named, twin}); }
    void connect() {
        settings->configureAudioUnit(unit);
        settings->setupParameterTreeListeners();
        unit->values.clear();
    }
};

TEST_F(ParameterSettingsTest, GivesTheUnitItsTreeAndItsValues) {
    settings->configureAudioUnit(unit);
    EXPECT_THAT(unit->values, ElementsAre(Pair(1, 0.5F), Pair(2, 0), Pair(3, 0), Pair(1, 0)));
    EXPECT_THAT(unit->parameterTree()->allParameters(),
                ElementsAre(plain->auParameter(), meta->auParameter(), named->auParameter(),
                            twin->auParameter()));
    settings->setupParameters({});
    settings->configureAudioUnit(unit);
    ASSERT_NE(unit->parameterTree(), nullptr);
    EXPECT_TRUE(unit->parameterTree()->children().empty());
}

TEST_F(ParameterSettingsTest, RoutesWhatTheTreeReports) {
    connect();
    plain->auParameter()->setValue(1);
    meta->auParameter()->setValue(0.25F);
    named->auParameter()->setValue(1);
    queue.drain();
    EXPECT_EQ(plain->value(), 1);
    EXPECT_EQ(named->value(), 1);
    EXPECT_THAT(settings->dependents, ElementsAre(Pair(2, 0.25F)));
    EXPECT_THAT(unit->values, ElementsAre(Pair(1, 1), Pair(2, 0.25F), Pair(3, 1)));

    unit->values.clear();
    settings->setValue(-7, 99, fromUnit);
    settings->setValue(-7, 1, fromUnit);
    queue.drain();
    EXPECT_EQ(plain->value(), 0);
    EXPECT_EQ(twin->value(), 0) << "the first of an address";
    EXPECT_THAT(unit->values, ElementsAre(Pair(99, -7), Pair(1, -7))) << "forwarded as it came";
}

TEST_F(ParameterSettingsTest, AnEditReachesTheSignalProcessingOnceAndIsNotWrittenBack) {
    connect();
    AutomationEvents events;
    recordEvents(*plain, events);
    {
        ParameterGesture gesture(plain);
        gesture.change(0.75F);
        queue.drain();
    }
    queue.drain();
    EXPECT_THAT(events, ElementsAre(Pair(1, 0.5F), Pair(0, 0.75F), Pair(2, 0.75F)));
    EXPECT_THAT(unit->values, ElementsAre(Pair(1, 0.5F), Pair(1, 0.75F), Pair(1, 0.75F)));
    EXPECT_EQ(plain->value(), 0.75F);
}

TEST_F(ParameterSettingsTest, EachPartMayGoFirst) {
    settings->setupParameterTreeListeners(); // no unit yet
    settings->setAudioUnit(unit);
    settings->setupParameterTreeListeners(); // no tree yet
    connect();
    const std::shared_ptr<platform::AUParameterTree> tree = unit->parameterTree();
    unit.reset();
    EXPECT_EQ(settings->audioUnit(), nullptr);
    settings->setValue(1, 1, fromUnit);
    settings->setupParameterTreeListeners();
    queue.drain();
    EXPECT_EQ(plain->value(), 1);
    settings.reset();
    tree->parameterWithAddress(1)->setValue(0);
    queue.drain();
    EXPECT_EQ(plain->value(), 1) << "a tree that outlives the settings calls nothing";
}

TEST_F(ParameterSettingsTest, KeepsTheTreeThatHostsObserveWhileItIsRight) {
    connect();
    const auto tree = unit->parameterTree();
    connect();
    EXPECT_EQ(unit->parameterTree(), tree);
    settings->setupParameters({plain, meta});
    connect();
    EXPECT_NE(unit->parameterTree(), tree);
    EXPECT_EQ(unit->parameterTree()->children().size(), 2U);
}

TEST_F(ParameterSettingsTest, AUnitStartsFromTheNewestValueOnItsWay) {
    plain->auParameter()->setValue(0.25F); // a host that nobody listens to yet
    connect();
    meta->auParameter()->setValue(0.75F);
    named->setValue(1, fromUnit, change); // shown only, as a dependent parameter may be
    const auto later = std::make_shared<RecordingUnit>();
    settings->configureAudioUnit(later);
    EXPECT_THAT(later->values, ElementsAre(Pair(1, 0.25F), Pair(2, 0.75F), Pair(3, 1), Pair(1, 0)));
    queue.drain();
    EXPECT_EQ(plain->value(), 0.25F);
    EXPECT_EQ(meta->value(), 0.75F);
    later->values.clear();
    settings->configureAudioUnit(later);
    EXPECT_THAT(later->values, ElementsAre(Pair(1, 0.25F), Pair(2, 0.75F), Pair(3, 1), Pair(1, 0)));
}

TEST_F(ParameterSettingsTest, ListensWhereverItStandsAndFromItsConstructorOn) {
    struct SetUpAtOnce : ParameterSettings {
        SetUpAtOnce(const std::shared_ptr<FernAudioUnit>& unit, Parameters all) {
            setupParameters(std::move(all));
            configureAudioUnit(unit);
            setupParameterTreeListeners();
        }
        ~SetUpAtOnce() override { stopListening(); }
    };
    const auto hostWrites = [&](float value) {
        unit->parameterTree()->parameterWithAddress(1)->setValue(value);
        queue.drain();
        return plain->value();
    };
    {
        const auto shared =
            std::make_shared<SetUpAtOnce>(unit, ParameterSettings::Parameters{plain});
        EXPECT_EQ(hostWrites(0.25F), 0.25F);
    }
    EXPECT_EQ(hostWrites(0.5F), 0.25F) << "it has ended";
    std::atomic<bool> isOver{false};
    {
        const SetUpAtOnce held(unit, {plain});
        EXPECT_EQ(hostWrites(0.75F), 0.75F);
    }
    for (int round = 0; round < 50; ++round) { // and it may end while a host writes
        auto held = std::make_unique<SetUpAtOnce>(unit, ParameterSettings::Parameters{plain});
        isOver = false;
        std::thread host([&, tree = unit->parameterTree()] {
            for (int i = 0; !isOver; ++i) {
                tree->parameterWithAddress(1)->setValue(static_cast<float>(i % 3) / 2);
            }
        });
        queue.drain(5);
        held.reset();
        isOver = true;
        host.join();
    }
}

TEST_F(ParameterSettingsTest, WritesTextsForHosts) {
    connect();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const std::pair<float, std::string> names[] = {{0.9F, "Off"}, {1.9F, "On"},      {-0.9F, "Off"},
                                                   {3.2F, "3"},   {-1, "-1"},        {2, "2"},
                                                   {nan, "-"},    {HUGE_VALF, "inf"}};
    for (const auto& [value, text] : names) {
        EXPECT_EQ(named->auParameter()->string(&value), text) << value;
    }
    EXPECT_EQ(named->auParameter()->string(nullptr), "-");
    const std::pair<float, std::string> numbers[] = {
        {0.5F, "0"}, {1.5F, "2"}, {2.5F, "2"}, {1e10F, "10000000000"}, {-0.2F, "-0"}};
    for (const auto& [value, text] : numbers) {
        EXPECT_EQ(plain->auParameter()->string(&value), text) << value;
    }
    const float large = 1e30F;
    EXPECT_EQ(plain->auParameter()->string(&large).size(), 31U);
    EXPECT_DEATH((void)named->auParameter()->string(&large), "beyond 64 bits");

    const std::pair<std::string, float> texts[] = {
        {"2.5", 2.5F}, {"On", 0}, {" 5", 0}, {"", 0}, {"2,5", 0}};
    for (const auto& [text, value] : texts) {
        EXPECT_EQ(named->auParameter()->value(text), value) << text;
    }
}

TEST_F(ParameterSettingsTest, HashesValuesTheirOrderAndMore) {
    const auto hashOf = [&](float first, float second) {
        const auto make = [&](float value) {
            return TestParameter{.range = {-1, 1}, .defaultValue = value}.on(queue);
        };
        settings->setupParameters({make(first), make(second)});
        return settings->paramsHash();
    };
    const auto zeros = hashOf(0, 0);
    EXPECT_EQ(hashOf(-0.0F, 0), zeros);
    EXPECT_NE(hashOf(1, 0), zeros);
    EXPECT_NE(hashOf(1, 0), hashOf(0, 1));
    EXPECT_NE(hashOf(1, 1), zeros) << "equal values do not cancel out";
    settings->additional = "more";
    EXPECT_NE(hashOf(0, 0), zeros);
    settings->setupParameters({plain});
    EXPECT_NE(settings->paramsHash(), zeros);
}

TEST_F(ParameterSettingsTest, KnowsItsVersionFromTheBundle) {
    EXPECT_EQ(settings->pluginVersion(), "Unknown");
    core::setBundleInformationSource([](std::string_view key) -> std::optional<std::string> {
        return key == "CFBundleShortVersionString" ? std::optional<std::string>("1.4")
                                                   : std::nullopt;
    });
    EXPECT_EQ(settings->pluginVersion(), "1.4");
    core::setBundleInformationSource(nullptr);
}

} // namespace
} // namespace fernhorn
