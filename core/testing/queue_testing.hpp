#pragma once

#include "core/main_queue.hpp"

#include <atomic>
#include <memory>
#include <utility>

namespace core::testing {

/// Wakes nobody and counts.
class CountingWaker final : public Waker {
  public:
    void wake() noexcept override { ++count; }
    std::atomic<int> count{0};
};

/// One number whose newest value has to arrive, kept alive by a reference while it is queued.
class Number final : public Mergeable, public std::enable_shared_from_this<Number> {
  public:
    void send(MainQueue& queue, int value) {
        newest_.store(value, std::memory_order_release);
        queue.merge(*this, [this] { entering_ = shared_from_this(); });
    }
    bool leaveLine() noexcept override {
        leaving_ = std::move(entering_);
        return true;
    }
    void take() noexcept override { taken_ = newest_.load(std::memory_order_acquire); }
    void apply() override {
        const auto alive = std::move(leaving_);
        shown = taken_;
        ++applied;
    }
    void discard() noexcept override {
        ++discarded;
        const auto first = std::move(entering_);
        const auto second = std::move(leaving_);
    }
    int shown = 0;
    int discarded = 0;
    int applied = 0;

  private:
    std::atomic<int> newest_{0};
    std::shared_ptr<Number> entering_;
    std::shared_ptr<Number> leaving_;
    int taken_ = 0;
};

} // namespace core::testing
