#pragma once

#include "core/main_queue.hpp"
#include "platform/audio/au_parameter_tree.hpp"

#include <atomic>
#include <cstdint>
#include <deque>

namespace gallery {

/// The newest of what a parameter tree tells its observers, as a host sees it: touches, values and
/// releases. Keeps so many lines and no more; while nobody collects, so many events and no more.
/// Main thread, but for the observer itself, which may be called by any.
class EventLog {
  public:
    /// Values of one parameter that follow each other are one line.
    struct Line {
        platform::AUParameterAutomationEvent event; ///< the newest of them
        std::uint32_t count = 1;
    };

    EventLog(std::shared_ptr<platform::AUParameterTree> tree, std::size_t lines);
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;
    ~EventLog();

    /// Takes in what has come since the last time. False: nothing has.
    bool collect();

    /// Those that began last come first; as of the last `collect`.
    [[nodiscard]] const std::deque<Line>& lines() const { return lines_; }
    [[nodiscard]] std::uint64_t eventCount() const { return eventCount_; }
    /// Events that came when there was no room.
    [[nodiscard]] std::uint64_t lostCount() const { return lost_.load(std::memory_order_relaxed); }
    [[nodiscard]] const platform::AUParameterTree& tree() const { return *tree_; }

  private:
    static constexpr std::size_t waitingEvents = 4096;
    static constexpr std::size_t mergingReach =
        8; ///< how old, in lines, one is that takes in further values

    void note(const platform::AUParameterAutomationEvent& event);
    void add(const platform::AUParameterAutomationEvent& event);

    const std::shared_ptr<platform::AUParameterTree> tree_;
    const std::size_t capacity_;
    core::MainQueue waiting_{waitingEvents}; ///< its own, drained by `collect` alone
    std::atomic<std::uint64_t> lost_{0};
    std::deque<Line> lines_;
    std::uint64_t eventCount_ = 0;
    platform::AUParameterObserverToken token_;
};

} // namespace gallery
