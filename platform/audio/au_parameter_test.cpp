#include "platform/audio/au_parameter_tree.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <thread>

namespace platform {
namespace {

using testing::ElementsAre;

std::shared_ptr<AUParameter> makeParameter(const std::string& identifier,
                                           AUParameterAddress address,
                                           std::optional<std::vector<std::string>> strings = {}) {
    return AUParameterTree::createParameter(
        identifier, identifier, address, -1, 2, AudioUnitParameterUnit::generic, "",
        kAudioUnitParameterFlag_IsReadable, std::move(strings), {});
}

TEST(AUParameter, BringsEveryWriteIntoItsRange) {
    constexpr AUValue infinity = std::numeric_limits<AUValue>::infinity();
    const auto parameter = makeParameter("a", 1);
    const std::pair<AUValue, AUValue> cases[] = {
        {0.5F, 0.5F},    {3, 2},
        {-5, -1},        {std::numeric_limits<AUValue>::quiet_NaN(), -1},
        {infinity, 2},   {-infinity, -1},
        {1e-45F, 1e-45F}};
    for (const auto& [written, stored] : cases) {
        parameter->setValue(written);
        EXPECT_EQ(parameter->value(), stored) << written;
    }
}

TEST(AUParameter, TellsEverybodyOnTheWayUpButTheOriginator) {
    const auto parameter = makeParameter("cutoff", 7);
    const auto group = AUParameterTree::createGroup("filter", "Filter", {parameter});
    const auto tree = AUParameterTree::createTree({makeParameter("gain", 1), group});
    std::vector<std::string> calls;
    tree->setImplementorValueObserver([&](const AUParameter& written, AUValue) {
        calls.push_back("unit " + written.identifier());
    });
    const auto onTree = tree->addParameterObserver(
        [&](AUParameterAddress, AUValue) { calls.emplace_back("tree"); });
    const auto onGroup = group->addParameterAutomationObserver([&](const auto& event) {
        calls.push_back("group " + std::to_string(event.hostTime) + ' ' +
                        std::to_string(static_cast<int>(event.eventType)));
    });
    const auto onParameter = parameter->addParameterObserver(
        [&](AUParameterAddress, AUValue) { calls.emplace_back("parameter"); });

    parameter->setValue(1, onTree, 42, AUParameterAutomationEventType::touch);
    EXPECT_THAT(calls, ElementsAre("unit cutoff", "parameter", "group 42 1"));
    calls.clear();
    parameter->setValue(1, onGroup);
    EXPECT_THAT(calls, ElementsAre("unit cutoff", "parameter", "tree"));
    calls.clear();
    tree->removeParameterObserver(onTree);
    group->removeParameterObserver(onGroup);
    tree->removeParameterObserver(onParameter); // not the node it was added to
    parameter->setValue(1);
    EXPECT_THAT(calls, ElementsAre("unit cutoff", "parameter"));
}

TEST(AUParameter, ObserversMayComeAndGoDuringANotification) {
    const auto parameter = makeParameter("a", 1);
    std::vector<int> calls;
    AUParameterObserverToken first;
    AUParameterObserverToken second;
    first = parameter->addParameterObserver([&](AUParameterAddress, AUValue) {
        calls.push_back(1);
        parameter->removeParameterObserver(first);
        parameter->removeParameterObserver(second);
        parameter->addParameterObserver([&](AUParameterAddress, AUValue) { calls.push_back(3); });
    });
    second =
        parameter->addParameterObserver([&](AUParameterAddress, AUValue) { calls.push_back(2); });
    parameter->setValue(1);
    EXPECT_THAT(calls, ElementsAre(1));
    parameter->setValue(2);
    EXPECT_THAT(calls, ElementsAre(1, 3));
}

TEST(AUParameter, TextsGoThroughTheImplementorOrHaveADefault) {
    const auto parameter = makeParameter("wave", 1, {{"Sine", "Saw"}});
    const auto text = [&](AUValue value) { return parameter->string(&value); };
    EXPECT_EQ(text(1.9F), "Saw");
    EXPECT_EQ(text(-0.5F), "Sine");
    EXPECT_EQ(text(2), "2.0");
    EXPECT_EQ(text(std::numeric_limits<AUValue>::quiet_NaN()), "nan");
    EXPECT_EQ(parameter->string(nullptr), "");
    EXPECT_EQ(parameter->value("2.5"), 2.5F);
    EXPECT_EQ(parameter->value("Saw"), 0);

    const auto tree = AUParameterTree::createTree({parameter});
    tree->setImplementorStringFromValueCallback([](const AUParameter&, const AUValue* value) {
        return value == nullptr ? "none" : "some";
    });
    tree->setImplementorValueFromStringCallback(
        [](const AUParameter&, const std::string&) { return 9.0F; });
    tree->setImplementorValueProvider([](const AUParameter&) { return 5.0F; });
    EXPECT_EQ(text(0) + parameter->string(nullptr), "somenone");
    EXPECT_EQ(parameter->value("x"), 9);
    EXPECT_EQ(parameter->value(), 5);
}

TEST(AUParameterTree, FindsByAddressAndByKeyPath) {
    const auto first = makeParameter("a.b", 3);
    const auto inner = makeParameter("b", 3);
    const auto group = AUParameterTree::createGroup("a", "A", {inner});
    const auto tree = AUParameterTree::createTree({group, first});
    EXPECT_EQ(tree->parameterWithAddress(3), inner);
    EXPECT_EQ(tree->parameterWithAddress(4), nullptr);
    EXPECT_EQ(tree->nodeWithKeyPath("a"), group);
    EXPECT_EQ(tree->nodeWithKeyPath("a.b"), inner);
    EXPECT_EQ(tree->nodeWithKeyPath("a."), nullptr);
    EXPECT_EQ(inner->keyPath(), "a.b");
    EXPECT_EQ(first->keyPath(), "a.b");
    EXPECT_THAT(tree->allParameters(), ElementsAre(inner, first));
    EXPECT_TRUE(AUParameterTree::createTree({})->allParameters().empty());
}

TEST(AUParameterTree, ANewTreeTakesItsParametersOver) {
    const auto parameter = makeParameter("a", 1);
    int oldCalls = 0;
    int newCalls = 0;
    auto former = AUParameterTree::createTree({parameter});
    former->addParameterObserver([&](AUParameterAddress, AUValue) { ++oldCalls; });
    auto tree = AUParameterTree::createTree({parameter});
    tree->addParameterObserver([&](AUParameterAddress, AUValue) { ++newCalls; });
    former.reset();
    parameter->setValue(1);
    tree.reset();
    parameter->setValue(2);
    EXPECT_EQ(oldCalls, 0);
    EXPECT_EQ(newCalls, 1);
    EXPECT_EQ(parameter->keyPath(), "a");
}

// Hosts write while observers come and go and the tree is replaced: after a removal has returned
// the observer is not called any more.
TEST(AUParameterTree, MayChangeWhileHostsWrite) {
    const auto parameter = makeParameter("a", 1);
    std::atomic<bool> isOver{false};
    std::atomic<int> late{0};
    std::array<std::thread, 2> hosts;
    for (auto& host : hosts) {
        host = std::thread([&] {
            for (AUValue value = 0; !isOver; value = 1 - value) {
                parameter->setValue(value);
            }
        });
    }
    for (int i = 0; i < 300; ++i) {
        const auto tree = AUParameterTree::createTree({parameter});
        auto isObserving = std::make_unique<std::atomic<bool>>(true);
        const auto token =
            tree->addParameterObserver([&late, flag = isObserving.get()](
                                           AUParameterAddress, AUValue) { late += *flag ? 0 : 1; });
        tree->setImplementorValueObserver(
            [&](const AUParameter& written, AUValue) { late += written.address() == 1 ? 0 : 1; });
        std::this_thread::yield();
        tree->removeParameterObserver(token);
        *isObserving = false;
        isObserving.reset();
    }
    isOver = true;
    for (auto& host : hosts) {
        host.join();
    }
    EXPECT_EQ(late, 0);
}

} // namespace
} // namespace platform
