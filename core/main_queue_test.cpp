#include "core/main_queue.hpp"
#include "core/testing/queue_testing.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace core {
namespace {

using testing::CountingWaker;
using testing::Number;

TEST(MainQueue, RunsTasksInOrderBeyondItsCapacity) {
    MainQueue queue(4);
    std::vector<int> order;
    const std::array<char, 200> large{};
    for (int i = 0; i < 20; ++i) {
        if (i % 3 == 0) {
            queue.post([&order, i, large] { order.push_back(i + large[0]); });
        } else {
            queue.post([&order, i] { order.push_back(i); });
        }
    }
    EXPECT_FALSE(queue.drain());
    ASSERT_EQ(order.size(), 20U);
    EXPECT_TRUE(std::ranges::is_sorted(order));
    EXPECT_TRUE(queue.tryPost([] {})) << "the ring is open again";
}

TEST(MainQueue, WakesOnceUntilItIsDrainedAndKeepsToTheBudget) {
    MainQueue queue;
    int ran = 0;
    queue.post([&] { ++ran; });
    CountingWaker waker;
    queue.addWaker(waker);
    EXPECT_EQ(waker.count, 1) << "what was posted before is not forgotten";
    for (int i = 0; i < 9; ++i) {
        queue.post([&] { ++ran; });
    }
    EXPECT_EQ(waker.count, 1);
    EXPECT_TRUE(queue.drain(4));
    EXPECT_EQ(ran, 4);
    queue.post([&] { ++ran; });
    EXPECT_EQ(waker.count, 1) << "with work left the main thread counts as awake";
    EXPECT_FALSE(queue.drain());
    EXPECT_EQ(ran, 11);
    queue.post([&] { ++ran; });
    EXPECT_EQ(waker.count, 2);
}

TEST(MainQueue, PumpedStaysAwakeUntilNothingWasToDo) {
    using Next = MainQueue::Next;
    MainQueue queue;
    CountingWaker waker;
    queue.addWaker(waker);
    const auto post = [&] { queue.post([] {}); };
    post();
    post();
    EXPECT_EQ(queue.pump(2), Next::now);
    post();
    EXPECT_EQ(queue.pump(2), Next::soon);
    post();
    EXPECT_EQ(waker.count, 1);
    EXPECT_EQ(queue.pump(), Next::soon);
    EXPECT_EQ(queue.pump(), Next::whenWoken);
    post();
    EXPECT_EQ(waker.count, 2);
    queue.drain();
    EXPECT_EQ(queue.pump(), Next::whenWoken) << "drained in between";
    post();
    EXPECT_EQ(waker.count, 3);
}

TEST(MainQueue, AWakerThatComesAfterAnotherIsToldOfEverything) {
    const auto leaveAwake = {
        +[](MainQueue& queue) {
            queue.post([] {});
            EXPECT_EQ(queue.pump(), MainQueue::Next::soon);
        },
        +[](MainQueue& queue) {
            queue.post([] {});
            EXPECT_TRUE(queue.drain(1)); // the bound is reached, nothing is left
        },
        +[](MainQueue&) {},
    };
    for (const auto leave : leaveAwake) {
        MainQueue queue;
        CountingWaker older;
        CountingWaker newer;
        queue.addWaker(older);
        leave(queue);
        queue.removeWaker(older);
        EXPECT_FALSE(queue.isAttended());
        queue.addWaker(newer);
        queue.post([] {});
        EXPECT_EQ(newer.count, 1) << "the older one meant to come back";
    }
    // Of two at once either may go first.
    for (const bool newerGoesFirst : {true, false}) {
        MainQueue queue;
        CountingWaker wakers[2];
        queue.addWaker(wakers[0]);
        queue.addWaker(wakers[1]);
        queue.removeWaker(wakers[newerGoesFirst ? 1 : 0]);
        queue.post([] {});
        EXPECT_EQ(wakers[newerGoesFirst ? 0 : 1].count, 1);
        EXPECT_TRUE(queue.isAttended());
        queue.removeWaker(wakers[newerGoesFirst ? 0 : 1]);
    }
}

TEST(MainQueue, DrainingOnAnotherThreadStopsTheProgram) {
    MainQueue queue;
    queue.drain();
    EXPECT_DEATH(std::thread([&] { queue.drain(); }).join(), "another thread than its main thread");
    CountingWaker waker;
    EXPECT_DEATH(std::thread([&] { queue.addWaker(waker); }).join(), "another thread");
    queue.addWaker(waker);
    queue.removeWaker(waker);
    std::thread([&] { // a host may open its next editor on another thread
        EXPECT_FALSE(queue.drain());
        EXPECT_TRUE(queue.isMainThread());
    })
        .join();
}

TEST(MainQueue, ATaskMayDrainAndPost) {
    MainQueue queue(2);
    std::vector<int> order;
    queue.post([&] {
        order.push_back(1);
        queue.post([&] { order.push_back(4); });
        queue.drain();
        order.push_back(5);
    });
    queue.post([&] { order.push_back(2); });
    queue.post([&] { order.push_back(3); });
    queue.drain();
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3, 4, 5}));
}

TEST(MainQueue, ReleasesWhatItNeverRan) {
    const auto task = std::make_shared<int>(0);
    const auto number = std::make_shared<Number>();
    {
        MainQueue queue(2);
        for (int i = 0; i < 5; ++i) {
            queue.post([task] {});
        }
        number->send(queue, 1);
    }
    EXPECT_EQ(task.use_count(), 1);
    EXPECT_EQ(number.use_count(), 1);
}

TEST(MainQueue, DiscardsOnceWhatStandsInBothOfItsLists) {
    const auto number = std::make_shared<Number>();
    {
        MainQueue queue(2);
        queue.post([] {});
        queue.post([] {});
        number->send(queue, 1);
        queue.drain(3); // both tasks, and the line is taken over
        number->send(queue, 2);
        EXPECT_EQ(number->applied, 0);
    }
    EXPECT_EQ(number->discarded, 1);
    EXPECT_EQ(number.use_count(), 1);
}

TEST(MainQueue, WhatEndsInLineIsPassedOver) {
    struct Ending final : Mergeable {
        explicit Ending(std::vector<int>& out, int number) : order(out), value(number) {}
        bool leaveLine() noexcept override { return value != 3; }
        void take() noexcept override {}
        void apply() override { order.push_back(value); }
        std::vector<int>& order;
        int value;
    };
    std::vector<int> order;
    std::array<Ending, 6> all{Ending{order, 0}, Ending{order, 1}, Ending{order, 2},
                              Ending{order, 3}, Ending{order, 4}, Ending{order, 5}};
    MainQueue queue;
    for (int i = 0; i < 4; ++i) {
        queue.merge(all[static_cast<std::size_t>(i)], [] {});
    }
    queue.withdraw(all[1]);
    queue.withdraw(all[1]);
    queue.merge(all[4], [] {});
    queue.merge(all[5], [] {});
    queue.withdraw(all[5]);
    queue.withdraw(all[0]);
    queue.merge(all[0], [] {});
    queue.drain();
    EXPECT_EQ(order, (std::vector<int>{2, 4, 0}));
    EXPECT_TRUE(queue.tryPost([] {})) << "the ring is open again";
}

// Several producers on a small ring, so that it overflows all the time: per producer the order
// holds for tasks and numbers together, and no last value is lost.
TEST(MainQueue, HoldsTheOrderOfEveryThreadUnderPressure) {
    constexpr int producers = 4;
    constexpr int rounds = 20'000;
    MainQueue queue(64);
    struct Producer {
        std::shared_ptr<Number> number = std::make_shared<Number>();
        int lastTask = 0;
        bool isOrdered = true;
    };
    std::array<Producer, producers> all;
    std::atomic<int> finished{0};
    std::vector<std::thread> threads;
    for (auto& producer : all) {
        threads.emplace_back([&] {
            for (int i = 1; i <= rounds; ++i) {
                if (i % 4 == 0) {
                    const auto task = [&producer, i] {
                        producer.isOrdered = producer.isOrdered && producer.lastTask < i &&
                                             producer.number->shown >= i - 3;
                        producer.lastTask = i;
                    };
                    queue.post(task);
                } else if (!queue.tryPost([&producer, i] {
                               producer.isOrdered =
                                   producer.isOrdered && producer.number->shown < i;
                               producer.number->shown = i;
                           })) {
                    producer.number->send(queue, i);
                }
            }
            ++finished;
        });
    }
    while (finished < producers) {
        queue.drain(100);
    }
    for (auto& thread : threads) {
        thread.join();
    }
    queue.drain();
    for (const auto& producer : all) {
        EXPECT_TRUE(producer.isOrdered);
        EXPECT_EQ(producer.lastTask, rounds);
        EXPECT_EQ(producer.number->shown, rounds - 1);
    }
}

// The consumer sleeps until it is woken; a lost wake-up would hang, so it is bounded in time.
TEST(MainQueue, NeverLosesAWakeUp) {
    class Semaphore final : public Waker {
      public:
        void wake() noexcept override { isSet.store(true, std::memory_order_release); }
        std::atomic<bool> isSet{false};
    };
    MainQueue queue(16);
    Semaphore waker;
    queue.addWaker(waker);
    constexpr int count = 50'000;
    int ran = 0;
    std::thread producer([&] {
        for (int i = 0; i < count; ++i) {
            queue.post([&] { ++ran; });
            if (i % 64 == 0) {
                std::this_thread::yield();
            }
        }
    });
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    auto next = MainQueue::Next::whenWoken;
    while (ran < count && std::chrono::steady_clock::now() < deadline) {
        if (waker.isSet.exchange(false, std::memory_order_acquire) ||
            next != MainQueue::Next::whenWoken) {
            while (ran % 2 == 0 && queue.drain(50)) {
            }
            next = queue.pump(50);
        } else {
            std::this_thread::yield();
        }
    }
    producer.join();
    EXPECT_EQ(ran, count);
}

// An editor's waker comes and goes while an audio thread posts.
TEST(MainQueue, AWakerIsNotCalledAnyMoreOnceItIsRemoved) {
    static std::atomic<int> calls;
    class SlowWaker final : public Waker {
      public:
        ~SlowWaker() override { EXPECT_EQ(calls, 0); }
        void wake() noexcept override {
            ++calls;
            std::this_thread::sleep_for(std::chrono::microseconds(20));
            --calls;
        }
    };
    MainQueue queue;
    std::atomic<bool> isOver{false};
    std::thread audio([&] {
        while (!isOver) {
            queue.post([] {});
            std::this_thread::yield();
        }
    });
    for (int editor = 0; editor < 500; ++editor) {
        const auto waker = std::make_unique<SlowWaker>();
        queue.addWaker(*waker);
        queue.drain();
        for (int spin = 0; calls == 0 && spin < 1000; ++spin) {
            std::this_thread::yield();
        }
        queue.removeWaker(*waker); // in the midst of a call
    }
    isOver = true;
    audio.join();
}

// Each queue gets its first post beside its first waker, in every shift against each other. If that
// wake-up is lost, then so is every later one.
TEST(MainQueue, AFirstPostBesideANewWakerIsNotLost) {
    constexpr std::size_t count = 2000;
    int lost = 0;
    for (unsigned round = 0; round < 100; ++round) {
        std::vector<std::unique_ptr<MainQueue>> queues;
        std::vector<CountingWaker> wakers(count);
        for (std::size_t i = 0; i < count; ++i) {
            queues.push_back(std::make_unique<MainQueue>(2));
        }
        std::atomic<std::size_t> turn{0};
        std::thread poster([&] {
            for (std::size_t i = 0; i < count; ++i) {
                for (int spin = 0; turn.load(std::memory_order_relaxed) <= i; ++spin) {
                    if (spin % 2048 == 2047) {
                        std::this_thread::yield();
                    }
                }
                queues[i]->post([] {});
            }
        });
        std::atomic<unsigned> delay{0};
        for (std::size_t i = 0; i < count; ++i) {
            turn.store(i + 1, std::memory_order_relaxed);
            for (unsigned d = 0; d < (i * 7 + round) % 97; ++d) {
                delay.fetch_add(1, std::memory_order_relaxed);
            }
            queues[i]->addWaker(wakers[i]);
        }
        poster.join();
        lost += static_cast<int>(
            std::ranges::count_if(wakers, [](const auto& waker) { return waker.count == 0; }));
    }
    EXPECT_EQ(lost, 0);
}

} // namespace
} // namespace core
