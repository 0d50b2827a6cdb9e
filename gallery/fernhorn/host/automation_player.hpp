#pragma once

#include "platform/audio/au_parameter_tree.hpp"

#include <cstdint>
#include <thread>

namespace gallery {

/// A host that plays recorded automation: writes values into a tree from a thread of its own. What
/// it writes depends on the number of the step alone, so that two runs are alike. Main thread.
class AutomationPlayer {
  public:
    static constexpr int stepsPerSecond = 60;

    /// The tree of a `VocoderSettings`.
    explicit AutomationPlayer(std::shared_ptr<platform::AUParameterTree> tree);
    AutomationPlayer(const AutomationPlayer&) = delete;
    AutomationPlayer& operator=(const AutomationPlayer&) = delete;
    ~AutomationPlayer() { stop(); }

    /// Plays on from where it stopped, in its own time, until it is stopped.
    void start();
    /// Returns when the thread has ended.
    void stop();
    [[nodiscard]] bool isPlaying() const { return thread_.joinable(); }

    /// Plays that many steps as fast as they go, on another thread, and returns when they are
    /// played. Stops what was playing.
    void play(int steps);

  private:
    const std::shared_ptr<platform::AUParameterTree> tree_;
    std::int64_t step_ = 0; ///< the thread's own while there is one
    std::jthread thread_;
};

} // namespace gallery
