#include "gallery/fernhorn/host/automation_player.hpp"

#include "plugin/settings/vocoder_settings.hpp"

#include <array>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace gallery {

namespace {

using larkvox::addressOf;
using larkvox::VocoderParameter;

/// A parameter that swings between two values.
struct Lane {
    VocoderParameter parameter;
    float lower;
    float upper;
    double period; ///< seconds
    double phase;  ///< turns
    bool isRatio = false;
};

constexpr std::array lanes{
    Lane{VocoderParameter::cutoff, 260, 6200, 4.0, 0.0, true},
    Lane{VocoderParameter::blend, 22, 86, 6.0, 0.3},
    Lane{VocoderParameter::tilt, -9, 9, 8.0, 0.1},
    Lane{VocoderParameter::depth, 10, 80, 5.0, 0.5},
};

float valueAt(const Lane& lane, double seconds) {
    constexpr double fullTurn = 6.283185307179586;
    const double turns = seconds / lane.period + lane.phase;
    const double part = 0.5 - 0.5 * std::cos(fullTurn * (turns - std::floor(turns)));
    return static_cast<float>(lane.isRatio ? lane.lower * std::pow(lane.upper / lane.lower, part)
                                           : std::lerp(lane.lower, lane.upper, part));
}

void writeStep(const platform::AUParameterTree& tree, std::int64_t step) {
    const double seconds = static_cast<double>(step) / AutomationPlayer::stepsPerSecond;
    for (const Lane& lane : lanes) {
        if (const auto parameter = tree.parameterWithAddress(addressOf(lane.parameter))) {
            parameter->setValue(valueAt(lane, seconds), {}, platform::AudioGetCurrentHostTime());
        }
    }
}

} // namespace

AutomationPlayer::AutomationPlayer(std::shared_ptr<platform::AUParameterTree> tree)
    : tree_(std::move(tree)) {}

void AutomationPlayer::start() {
    if (isPlaying()) {
        return;
    }
    thread_ = std::jthread([this](const std::stop_token& stop) {
        using Clock = std::chrono::steady_clock;
        constexpr auto pace = std::chrono::nanoseconds(std::chrono::seconds(1)) / stepsPerSecond;
        std::mutex mutex;
        std::condition_variable_any sleep;
        auto next = Clock::now();
        while (!stop.stop_requested()) {
            writeStep(*tree_, step_++);
            // After a pause of the machine it goes on from there and does not hurry.
            next = std::max(next + pace, Clock::now() - pace);
            std::unique_lock lock(mutex);
            sleep.wait_until(lock, stop, next, [] { return false; });
        }
    });
}

void AutomationPlayer::stop() {
    thread_ = {}; // asks it to stop and waits
}

void AutomationPlayer::play(int steps) {
    stop();
    std::jthread([&] {
        for (int i = 0; i < steps; ++i) {
            writeStep(*tree_, step_++);
        }
    }).join();
}

} // namespace gallery
