// Made for ThreadSanitizer: everything here happens on several threads at once.
#include "fernhorn/model/parameter_gesture.hpp"
#include "fernhorn/model/parameter_settings.hpp"
#include "fernhorn/testing/test_parameter.hpp"

#include <gtest/gtest.h>

#include <array>
#include <thread>

namespace fernhorn {
namespace {

#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
constexpr int rounds = 20'000;
#else
constexpr int rounds = 200'000;
#endif

class CountingUnit final : public FernAudioUnit {
  public:
    void setParameter(platform::AUParameterAddress, float) override { ++calls; }
    std::atomic<int> calls{0};
};

// Each source counts upwards in numbers of its own parity. Whether changes travel singly or
// merged, each source's numbers arrive in order and end with its last one.
TEST(ParameterThreads, EverySourceArrivesInOrderAndWithItsNewestValue) {
    for (const std::size_t capacity : {2U, 64U, 8192U}) {
        core::MainQueue queue(capacity);
        struct One {
            std::shared_ptr<AudioParameter> parameter;
            std::array<float, 2> last{-1, -1};
            bool isOrdered = true;
            core::Subscription subscription;
        };
        std::array<One, 3> all;
        for (auto& one : all) {
            one.parameter = TestParameter{.range = {-1, 1e6F}, .defaultValue = -1}.on(queue);
            one.subscription = one.parameter->observeValue([&one](float value) {
                float& last = one.last[static_cast<std::size_t>(value) % 2];
                one.isOrdered = one.isOrdered && value > last;
                last = value;
            });
        }
        std::atomic<int> finished{0};
        std::array<std::thread, 2> writers;
        for (std::size_t w = 0; w < writers.size(); ++w) {
            writers[w] = std::thread([&, w] {
                for (int i = 0; i < rounds; ++i) {
                    const auto& parameter = all[static_cast<std::size_t>(i) % all.size()].parameter;
                    parameter->setValue(static_cast<float>(2 * i) + static_cast<float>(w),
                                        w == 0 ? fromUnit : fromUi, change);
                }
                ++finished;
            });
        }
        while (finished < 2) {
            queue.drain(1000);
        }
        for (auto& writer : writers) {
            writer.join();
        }
        queue.drain();
        for (std::size_t i = 0; i < all.size(); ++i) {
            const auto lastRound = static_cast<std::size_t>(rounds) - 1;
            const std::size_t round = lastRound - (lastRound + all.size() - i) % all.size();
            EXPECT_TRUE(all[i].isOrdered) << capacity;
            EXPECT_EQ(all[i].last[0], static_cast<float>(2 * round)) << capacity;
            EXPECT_EQ(all[i].last[1], static_cast<float>(2 * round + 1)) << capacity;
        }
    }
}

// One thread writes both sources of one parameter, merged: what it called last is what ends up
// shown, and its calls are never shown in the wrong order, also where observers drain in turn.
TEST(ParameterThreads, BothSourcesOfOneThreadKeepItsOrder) {
    for (const bool observersDrain : {false, true}) {
        core::MainQueue queue(2);
        const auto parameter = TestParameter{.range = {-1, 1e6F}, .defaultValue = -1}.on(queue);
        float last = -1;
        bool isOrdered = true;
        int depth = 0;
        const auto subscription = parameter->observeValue([&](float value) {
            isOrdered = isOrdered && value > last;
            last = value;
            if (observersDrain && depth < 3) {
                ++depth;
                queue.drain(4);
                --depth;
            }
        });
        std::atomic<bool> isOver{false};
        std::thread writer([&] {
            for (int i = 0; i < rounds; ++i) {
                parameter->setValue(static_cast<float>(i), i % 3 == 0 ? fromUi : fromUnit, change);
            }
            isOver = true;
        });
        while (!isOver) {
            queue.drain(10);
        }
        writer.join();
        while (queue.drain()) {
        }
        EXPECT_TRUE(isOrdered);
        EXPECT_EQ(last, static_cast<float>(rounds - 1));
        EXPECT_EQ(parameter->value(), last);
    }
}

// A host and the interface write one parameter at the same time: when nothing is pending, the tree,
// the interface and the signal processing have the same value.
TEST(ParameterThreads, TreeInterfaceAndSignalProcessingAgreeInTheEnd) {
    class Unit final : public FernAudioUnit {
      public:
        void setParameter(platform::AUParameterAddress, float newValue) override {
            value.store(newValue);
        }
        std::atomic<float> value{0};
    };
    for (const std::size_t capacity : {2U, 1024U}) {
        core::MainQueue queue(capacity);
        const auto parameter = TestParameter{.range = {0, 1e6F}}.on(queue);
        const auto unit = std::make_shared<Unit>();
        const auto settings = std::make_shared<ParameterSettings>();
        settings->setupParameters({parameter});
        settings->configureAudioUnit(unit);
        settings->setupParameterTreeListeners();
        std::atomic<int> turn{0};
        std::atomic<int> done{0};
        constexpr int pairs = rounds / 10;
        std::array<std::thread, 2> writers;
        for (std::size_t w = 0; w < writers.size(); ++w) {
            writers[w] = std::thread([&, w] {
                for (int i = 1; i <= pairs; ++i) {
                    for (int spin = 0; turn < i; ++spin) {
                        if (spin % 256 == 255) {
                            std::this_thread::yield();
                        }
                    }
                    // In turn: the interface beside a host, and two hosts, one of which writes
                    // what is shown.
                    const bool areHosts = i % 2 == 0;
                    const float value = areHosts && w == 0 ? parameter->value()
                                                           : static_cast<float>(2 * (i % 5)) +
                                                                 static_cast<float>(w);
                    if (w == 0 || areHosts) {
                        parameter->auParameter()->setValue(value);
                    } else {
                        parameter->setValue(value, fromUi, change);
                    }
                    ++done;
                }
            });
        }
        int shownWrong = 0;
        int processedWrong = 0;
        for (int i = 1; i <= pairs; ++i) {
            turn = i;
            for (int spin = 0; done < 2 * i; ++spin) {
                if (i % 2 == 0) { // in between, too
                    queue.drain();
                }
                if (spin % 256 == 255) {
                    std::this_thread::yield();
                }
            }
            while (queue.drain()) {
            }
            const float inTree = parameter->auParameter()->value();
            shownWrong += parameter->value() != inTree ? 1 : 0;
            processedWrong += unit->value != inTree ? 1 : 0;
        }
        for (auto& writer : writers) {
            writer.join();
        }
        EXPECT_EQ(shownWrong, 0) << "of " << pairs;
        EXPECT_EQ(processedWrong, 0) << "of " << pairs;
    }
}

TEST(ParameterThreads, ParametersMayEndWhileTheirChangesArePending) {
    core::MainQueue queue(16);
    for (int round = 0; round < rounds / 200; ++round) {
        auto parameter = TestParameter{}.on(queue);
        const std::weak_ptr<AudioParameter> weak = parameter;
        std::thread writer([owner = parameter] {
            for (int i = 0; i < 20; ++i) {
                owner->setValue(static_cast<float>(i % 2), i % 3 == 0 ? fromUi : fromUnit, change);
            }
        });
        parameter.reset();
        queue.drain(10);
        writer.join();
        queue.drain();
        EXPECT_TRUE(weak.expired());
    }
}

// Hosts write through a tree while the main thread edits, replaces lists, units and trees, and at
// last lets everything go.
TEST(ParameterThreads, SettingsAndUnitsMayChangeAndEndWhileHostsWrite) {
    core::MainQueue queue(64);
    ParameterSettings::Parameters parameters;
    for (platform::AUParameterAddress address = 0; address < 4; ++address) {
        parameters.push_back(TestParameter{.address = address}.on(queue));
    }
    auto settings = std::make_shared<ParameterSettings>();
    auto unit = std::make_shared<CountingUnit>();
    settings->setupParameters(parameters);
    settings->configureAudioUnit(unit);
    settings->setupParameterTreeListeners();

    std::atomic<bool> isOver{false};
    std::array<std::thread, 2> hosts;
    for (auto& host : hosts) {
        host = std::thread([&isOver, all = parameters] {
            for (int i = 0; !isOver; ++i) {
                const auto& unitSide = all[static_cast<std::size_t>(i) % all.size()]->auParameter();
                unitSide->setValue(static_cast<float>(i % 5) / 4);
            }
        });
    }
    for (int round = 0; round < 100; ++round) {
        {
            ParameterGesture gesture(parameters[0]);
            gesture.change(static_cast<float>(round % 7) / 7);
        }
        queue.drain();
        if (round % 10 == 5) {
            settings->setupParameters({parameters.rbegin(), parameters.rend()});
            unit = std::make_shared<CountingUnit>();
            settings->configureAudioUnit(unit);
            settings->setupParameterTreeListeners();
        }
    }
    const auto tree = unit->parameterTree();
    unit.reset();
    queue.drain();
    settings.reset();
    queue.drain();
    isOver = true;
    for (auto& host : hosts) {
        host.join();
    }
    while (queue.drain()) {
    }
    const float before = parameters[1]->value();
    tree->parameterWithAddress(1)->setValue(0.99F);
    queue.drain();
    EXPECT_EQ(parameters[1]->value(), before);
}

} // namespace
} // namespace fernhorn
