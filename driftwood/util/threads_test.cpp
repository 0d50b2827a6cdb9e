#include "driftwood/util/concurrent_subject.hpp"
#include "driftwood/util/receive_on_main_thread.hpp"
#include "driftwood/util/ui_event_throttler.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <semaphore>
#include <string>
#include <thread>
#include <vector>

namespace driftwood {
namespace {

using core::Seconds;
using namespace std::chrono_literals;

TEST(UIEventThrottler, RunsOnlyTheLastOfABurstAfterTheInterval) {
    core::ManualClock clock;
    ManualTimerQueue timers(clock);
    UIEventThrottler throttler(Seconds(0.1), timers);
    std::vector<std::pair<int, double>> ran;
    for (int i = 1; i <= 10; ++i) {
        throttler.throttle([&, i] { ran.emplace_back(i, clock.now().time_since_epoch().count()); });
        timers.advance(Seconds(0.01));
    }
    timers.advance(Seconds(0.0899));
    EXPECT_TRUE(ran.empty());
    timers.advance(Seconds(5));
    ASSERT_EQ(ran.size(), 1U);
    EXPECT_EQ(ran[0].first, 10);
    EXPECT_NEAR(ran[0].second, 0.19, 1e-9);

    throttler.throttle([&] { ran.clear(); });
    throttler.cancelAll();
    {
        UIEventThrottler gone(Seconds(0.1), timers);
        gone.throttle([&] { ran.clear(); });
    }
    timers.advance(Seconds(1));
    EXPECT_EQ(ran.size(), 1U) << "neither cancelled nor destroyed ones run";
    throttler.throttle([&] { throttler.throttle([&] { ran.clear(); }); });
    timers.advance(Seconds(0.1));
    timers.advance(Seconds(0.1));
    EXPECT_TRUE(ran.empty()) << "an action may start the next";
}

TEST(WorkerTimerQueue, RunsTasksInTheOrderOfTheirTimesOnItsOwnThread) {
    WorkerTimerQueue timers;
    std::vector<int> order; // the worker's until it is done
    std::binary_semaphore go(0);
    std::binary_semaphore done(0);
    std::thread::id thread;
    const auto start = std::chrono::steady_clock::now();
    const auto last = timers.schedule(Seconds(0.2), [&] {
        thread = std::this_thread::get_id();
        done.release();
    });
    const auto first = timers.schedule(Seconds(-1), [&] {
        go.acquire(); // so that the others are in line before their times, however slow this runs
        order.push_back(1);
    });
    auto cancelled = timers.schedule(Seconds(0), [&] { order.push_back(3); });
    const auto middle = timers.schedule(Seconds(0), [&] { order.push_back(2); });
    const auto never = timers.schedule(Seconds(1e300), [&] { order.push_back(4); });
    cancelled.cancel();
    go.release();
    done.acquire();
    EXPECT_GE(std::chrono::steady_clock::now() - start, 200ms);
    EXPECT_EQ(order, (std::vector{1, 2}));
    EXPECT_NE(thread, std::this_thread::get_id());
}

TEST(UIEventThrottler, ASlowActionDelaysNoOtherOne) {
    UIEventThrottler slow(Seconds(0.001));
    UIEventThrottler quick(Seconds(0.02));
    std::binary_semaphore go(0);
    std::binary_semaphore hasRun(0);
    std::binary_semaphore isOver(0);
    for (const bool isQuickFirst : {true, false}) {
        const auto scheduleQuick = [&] { quick.throttle([&] { hasRun.release(); }); };
        if (isQuickFirst) {
            scheduleQuick();
        }
        slow.throttle([&] {
            go.acquire();
            isOver.release();
        });
        if (!isQuickFirst) {
            std::this_thread::sleep_for(20ms);
            scheduleQuick();
        }
        EXPECT_TRUE(hasRun.try_acquire_for(5s));
        go.release();
        isOver.acquire();
    }
}

TEST(WorkerTimerQueue, IsLeftInPeaceByThrottlersThatComeAndGo) {
    std::atomic<int> ran{0};
    core::Subscription outliving;
    int calls = 0;
    {
        WorkerTimerQueue timers;
        const auto end = std::chrono::steady_clock::now() + 300ms;
        while (std::chrono::steady_clock::now() < end) {
            UIEventThrottler throttler(Seconds(calls % 3 == 0 ? 0 : 0.0001), timers);
            for (int i = 0; i < 5; ++i, ++calls) {
                throttler.throttle([&ran, token = std::make_shared<int>(1)] { ran += *token; });
                if (i % 2 == 0) {
                    std::this_thread::yield();
                }
            }
        }
        outliving = timers.schedule(Seconds(60), [&] { ran = -1; });
    }
    outliving.cancel();
    EXPECT_GT(ran, 0);
    EXPECT_LE(ran, calls);
}

TEST(ReceiveOnMainThread, PassesOnAtOnceOnTheMainThreadAndQueuesElsewhere) {
    core::MainQueue queue;
    queue.drain(); // this is the main thread
    const auto upstream = std::make_shared<ConcurrentSubject<int>>();
    const auto stream = receiveOnMainThread<int>(upstream, queue);
    std::string log;
    auto subscription = stream->subscribe([&](int value) { log += std::to_string(value) + ' '; },
                                          [&] { log += "end"; });
    upstream->send(1);
    EXPECT_EQ(log, "1 ");
    std::thread([&] {
        upstream->send(2);
        upstream->finish();
    }).join();
    EXPECT_EQ(log, "1 ");
    queue.drain();
    EXPECT_EQ(log, "1 2 end");

    log.clear();
    auto late = stream->subscribe({}, [&] { log += "end"; });
    EXPECT_EQ(log, "end");
}

TEST(ReceiveOnMainThread, DeliversNothingAfterTheEnd) {
    core::MainQueue queue;
    queue.drain();
    const auto upstream = std::make_shared<ConcurrentSubject<int>>();
    const auto token = std::make_shared<int>(0);
    int values = 0;
    core::Subscription subscription;
    subscription = ReceiveOnMainThread<int>(upstream, queue).subscribe([&, token](int) {
        ++values;
        subscription.cancel();
    });
    std::thread([&] {
        upstream->send(1);
        upstream->send(2);
    }).join();
    queue.drain();
    EXPECT_EQ(values, 1);
    EXPECT_EQ(token.use_count(), 1) << "what the callback held is let go";
}

TEST(ReceiveOnMainThread, KeepsTheOrderOfEachThreadWhileSubscribersComeAndGo) {
    constexpr int senders = 3;
    constexpr int count = 3000;
    core::MainQueue queue(64);
    queue.drain();
    const auto upstream = std::make_shared<ConcurrentSubject<std::pair<int, int>>>();
    const auto stream = receiveOnMainThread<std::pair<int, int>>(upstream, queue);
    std::vector<int> last(senders, -1);
    int received = 0;
    const auto subscription = stream->subscribe([&](const std::pair<int, int>& value) {
        int& previous = last[static_cast<std::size_t>(value.first)];
        EXPECT_EQ(value.second, previous + 1);
        previous = value.second;
        ++received;
    });
    std::atomic<int> finished{0};
    std::vector<std::thread> threads;
    threads.reserve(senders);
    for (int sender = 0; sender < senders; ++sender) {
        threads.emplace_back([&, sender] {
            for (int i = 0; i < count; ++i) {
                upstream->send({sender, i});
            }
            ++finished;
        });
    }
    int passing = 0;
    while (finished < senders) {
        const auto guest = stream->subscribe([&](const auto&) { ++passing; });
        queue.drain(50);
    }
    for (auto& thread : threads) {
        thread.join();
    }
    queue.drain();
    EXPECT_EQ(received, senders * count);
}

} // namespace
} // namespace driftwood
