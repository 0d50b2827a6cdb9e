#include "platform/audio/parameter_event_queue.hpp"

#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <utility>

namespace platform {
namespace {

using Rendered = std::vector<std::pair<AUParameterAddress, AUAudioFrameCount>>;

Rendered render(ParameterEventQueue& queue, AUEventSampleTime start, AUAudioFrameCount frames) {
    Rendered rendered;
    queue.render(start, frames, [&](const AUParameterEvent& event, AUAudioFrameCount offset) {
        rendered.emplace_back(event.parameterAddress, offset);
    });
    return rendered;
}

TEST(ParameterEventQueue, RendersWhatIsDueInTheOrderOfTheSamples) {
    ParameterEventQueue queue(8);
    constexpr auto last = std::numeric_limits<AUEventSampleTime>::max();
    const std::pair<AUEventSampleTime, AUParameterAddress> events[] = {
        {164, 1}, {131, 2}, {100, 3}, {131, 4}, {50, 5}, {AUEventSampleTimeImmediate, 6},
        {132, 7}, {last, 8}};
    for (const auto& [time, address] : events) {
        EXPECT_TRUE(queue.schedule({time, 0, address, 0}));
    }
    EXPECT_EQ(render(queue, 100, 0), (Rendered{{6, 0}, {5, 0}})) << "late ones even without frames";
    EXPECT_EQ(render(queue, 100, 32), (Rendered{{3, 0}, {2, 31}, {4, 31}}));
    EXPECT_EQ(render(queue, 132, 32), (Rendered{{7, 0}}));
    EXPECT_EQ(render(queue, 164, 32), (Rendered{{1, 0}}));
    EXPECT_EQ(render(queue, last - 3, 4), (Rendered{{8, 3}}));
}

TEST(ParameterEventQueue, RefusesWhatItCannotHoldAndKeepsTheRest) {
    ParameterEventQueue queue(3);
    for (int round = 0; round < 5; ++round) {
        for (AUParameterAddress address = 0; address < 3; ++address) {
            EXPECT_TRUE(queue.schedule({10, 0, address, 0}));
        }
        EXPECT_FALSE(queue.schedule({0, 0, 9, 0}));
        EXPECT_TRUE(render(queue, 0, 10).empty());
        EXPECT_FALSE(queue.schedule({0, 0, 9, 0})) << "collected events still count";
        EXPECT_EQ(render(queue, 10, 1), (Rendered{{0, 0}, {1, 0}, {2, 0}}));
    }
}

TEST(ParameterEventQueue, LosesNothingBetweenThreads) {
    constexpr int perThread = 20'000;
    ParameterEventQueue queue(64);
    std::array<std::thread, 2> writers;
    for (std::size_t w = 0; w < writers.size(); ++w) {
        writers[w] = std::thread([&, w] {
            for (int i = 0; i < perThread;) {
                // Every other one lies in the future, so that the heap is in use.
                const bool isScheduled = queue.schedule(
                    {i % 2 == 0 ? AUEventSampleTimeImmediate : i, 0, w, static_cast<AUValue>(i)});
                i += isScheduled ? 1 : 0;
                if (!isScheduled) {
                    std::this_thread::yield();
                }
            }
        });
    }
    std::array<std::vector<bool>, 2> seen{std::vector<bool>(perThread),
                                          std::vector<bool>(perThread)};
    int count = 0;
    for (AUEventSampleTime now = 0; count < 2 * perThread; now += 16) {
        queue.render(now, 16, [&](const AUParameterEvent& event, AUAudioFrameCount) {
            auto one = seen[event.parameterAddress][static_cast<std::size_t>(event.value)];
            count += one ? 0 : 1;
            one = true;
        });
        std::this_thread::yield();
    }
    for (auto& writer : writers) {
        writer.join();
    }
    EXPECT_TRUE(queue.schedule({}));
}

} // namespace
} // namespace platform
