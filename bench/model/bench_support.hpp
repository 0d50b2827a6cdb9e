#pragma once

#include "core/main_queue.hpp"
#include "fernhorn/model/audio_parameter.hpp"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>
#include <vector>

/// What the benchmarks of the parameter model share.
namespace bench {

using Clock = std::chrono::steady_clock;

inline double nanosecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::nano>(Clock::now() - start).count();
}

inline void print(const char* name, double value, const char* unit) {
    std::printf("figure %s %.6g %s\n", name, value, unit);
    std::fflush(stdout);
}

/// The median as the figure itself, the least beside it.
inline void printSamples(const std::string& name, std::vector<double> samples, const char* unit) {
    std::sort(samples.begin(), samples.end());
    print(name.c_str(), samples[samples.size() / 2], unit);
    print((name + "_min").c_str(), samples.front(), unit);
}

/// Only counts.
class CountingWaker final : public core::Waker {
  public:
    void wake() noexcept override { count.fetch_add(1, std::memory_order_relaxed); }
    std::atomic<long> count{0};
};

/// A main thread that sleeps in poll until the queue wakes it, as an event loop does.
class MainLoop final : public core::Waker {
  public:
    explicit MainLoop(core::MainQueue& queue) : queue_(queue) { queue.addWaker(*this); }
    ~MainLoop() {
        queue_.removeWaker(*this);
        close(descriptor_);
    }
    MainLoop(const MainLoop&) = delete;
    MainLoop& operator=(const MainLoop&) = delete;

    void wake() noexcept override {
        wakes_.fetch_add(1, std::memory_order_relaxed);
        const std::uint64_t one = 1;
        [[maybe_unused]] const auto written = write(descriptor_, &one, sizeof one);
    }

    void runUntil(const std::atomic<bool>& isOver) {
        runFor(std::chrono::hours(1), isOver);
        queue_.drain();
    }

    /// An event loop that ends in between, leaving what waits.
    void runFor(std::chrono::milliseconds time, const std::atomic<bool>& isOver) {
        const auto end = Clock::now() + time;
        auto next = core::MainQueue::Next::whenWoken;
        while (!isOver && Clock::now() < end) {
            pollfd source{descriptor_, POLLIN, 0};
            const int wait = next == core::MainQueue::Next::whenWoken
                                 ? static_cast<int>(std::min<std::int64_t>(time.count(), 60'000))
                             : next == core::MainQueue::Next::soon ? 1
                                                                   : 0;
            if (poll(&source, 1, wait) > 0) {
                std::uint64_t count = 0;
                [[maybe_unused]] const auto taken = read(descriptor_, &count, sizeof count);
            }
            next = queue_.pump(1024);
        }
    }

    [[nodiscard]] long wakes() const { return wakes_.load(std::memory_order_relaxed); }

  private:
    core::MainQueue& queue_;
    int descriptor_ = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    std::atomic<long> wakes_{0};
};

/// Parameters with one observer each, which counts.
struct Parameters {
    Parameters(std::size_t count, core::MainQueue& queue) {
        for (std::size_t i = 0; i < count; ++i) {
            all.push_back(std::make_shared<fernhorn::AudioParameter>(
                i, "parameter " + std::to_string(i), "", platform::AudioUnitParameterUnit::generic,
                fernhorn::ValueRange{0, 1e7F}, 0.0F, fernhorn::ValueIncrement::linear(),
                std::nullopt, std::nullopt, queue));
            subscriptions.push_back(all.back()->observeValue([this](float) {
                delivered.store(delivered.load(std::memory_order_relaxed) + 1,
                                std::memory_order_release);
            }));
        }
    }
    std::vector<std::shared_ptr<fernhorn::AudioParameter>> all;
    std::vector<core::Subscription> subscriptions;
    std::atomic<long> delivered{0}; // changes observers were told of
};

/// The n-th value in a row in which neighbours differ, exact in 32 bits.
inline float valueAt(long n) {
    return static_cast<float>(1 + n % 8'000'000);
}

} // namespace bench
