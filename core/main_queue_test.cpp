#include "core/main_queue.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace core {
namespace {

class CountingWaker final : public Waker {
  public:
    void wake() noexcept override { ++count; }
    std::atomic<int> count{0};
};

/// One number whose newest value has to arrive, kept alive by a reference while it is in line.
class Number final : public Mergeable, public std::enable_shared_from_this<Number> {
  public:
    void send(MainQueue& queue, int value) {
        newest_.store(value, std::memory_order_release);
        queue.merge(*this, [this] { entering_ = shared_from_this(); });
    }
    void leaveLine() noexcept override { leaving_ = std::move(entering_); }
    void take() noexcept override { taken_ = newest_.load(std::memory_order_acquire); }
    void apply() override {
        const auto alive = std::move(leaving_);
        shown = taken_;
        ++applied;
    }
    void discard() noexcept override { entering_.reset(); }
    int shown = 0;
    int applied = 0;

  private:
    std::atomic<int> newest_{0};
    std::shared_ptr<Number> entering_;
    std::shared_ptr<Number> leaving_;
    int taken_ = 0;
};

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
    queue.setWaker(&waker);
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
    queue.setWaker(&waker);
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

TEST(MainQueue, MergesWhatFindsNoRoomAndKeepsTheOrder) {
    MainQueue queue(2);
    const auto number = std::make_shared<Number>();
    std::vector<int> shownBefore;
    queue.post([&] { shownBefore.push_back(number->shown); });
    for (int i = 1; i <= 100; ++i) {
        number->send(queue, i);
    }
    queue.post([&] { shownBefore.push_back(number->shown); });
    queue.drain();
    EXPECT_EQ(number->applied, 1);
    EXPECT_EQ(shownBefore, (std::vector<int>{0, 100}));
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
    queue.setWaker(&waker);
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

} // namespace
} // namespace core
