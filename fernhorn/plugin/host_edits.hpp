#pragma once

#include "core/ring.hpp"
#include "platform/audio/au_parameter_tree.hpp"

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace fernhorn {

/// One step of an edit, as hosts want to be told of it.
struct HostEdit {
    /// Which step it is.
    enum class Kind : std::uint8_t {
        begin, ///< somebody touches the control; the value is that of now
        value,
        end, ///< the control is let go; the value has been told before
    };
    Kind kind = Kind::value;
    platform::AUParameterAddress address = 0;
    float value = 0;
    friend bool operator==(const HostEdit&, const HostEdit&) = default;
};

/// Whether a value outside of any touch (typed, reset, a tab) is told as a touch of its own.
enum class LoneEdits : std::uint8_t { asTheyAre, bracketed };

/// Carries the edits of an interface from the parameters of a tree to the thread that tells the
/// host of them: an audio thread, or the main thread between two edits. Touches of one parameter
/// that overlap are one. Nothing is lost when more comes than it has room for: values then merge
/// into the newest, and every begin that is told has its end.
///
/// Neither side takes a lock or memory, and the host's side never waits.
class HostEdits {
  public:
    /// Listens to the parameters that `tree` has now. `capacity` steps wait singly.
    explicit HostEdits(std::shared_ptr<platform::AUParameterTree> tree,
                       LoneEdits loneEdits = LoneEdits::bracketed, std::size_t capacity = 1024);
    /// Waits for edits that are just being made on other threads.
    ~HostEdits();
    HostEdits(const HostEdits&) = delete;
    HostEdits& operator=(const HostEdits&) = delete;

    /// Goes with every write of the host's (`AUParameter::setValue`, `ParameterSettings::restore`),
    /// so that it does not come back as an edit. Any thread.
    [[nodiscard]] platform::AUParameterObserverToken originator() const { return token_; }

    /// A value from the host, written to the tree. Ignored while the parameter is touched: then it
    /// is the echo of the edit, or would fight with it. Any thread.
    void writeFromHost(platform::AUParameterAddress address, float value);

    /// Whether the interface touches the parameter. Any thread.
    [[nodiscard]] bool isTouched(platform::AUParameterAddress address) const;

    /// The thread that tells the host: calls `tell(const HostEdit&)` for everything that waits.
    /// Where that is the thread of the edits, an observer added to the tree after this may call it.
    template<class Tell>
    void take(Tell&& tell) {
        while (const auto edit = next()) {
            tell(*edit);
        }
    }

  private:
    struct Cell {
        std::atomic<std::size_t> sequence;
        std::uint32_t index;
        std::uint32_t order; // among the steps of the parameter
        HostEdit::Kind kind;
        float value;
    };
    struct Parameter {
        explicit Parameter(std::shared_ptr<platform::AUParameter> from)
            : unitSide(std::move(from)) {}
        const std::shared_ptr<platform::AUParameter> unitSide;
        std::atomic<int> touches{0};
        std::atomic<std::uint32_t> steps{0};
        std::atomic<bool> isMissed{false}; // found no room

        // The host's side.
        std::uint32_t coveredSteps = 0; // those before this are told of by the parameter's state
        bool isBeginTold = false;
    };

    void hear(const platform::AUParameterAutomationEvent& event);
    void push(std::uint32_t index, HostEdit::Kind kind, float value);
    void miss(Parameter& parameter);
    [[nodiscard]] std::optional<HostEdit> next();
    [[nodiscard]] bool findMissed();
    [[nodiscard]] std::optional<HostEdit> restOfMissed();
    [[nodiscard]] std::optional<HostEdit> translated(std::uint32_t index, HostEdit::Kind kind,
                                                     float value);

    const std::shared_ptr<platform::AUParameterTree> tree_;
    const LoneEdits loneEdits_;
    std::vector<std::unique_ptr<Parameter>> parameters_;
    std::unordered_map<platform::AUParameterAddress, std::uint32_t> indices_;
    core::Ring<Cell> ring_;
    std::atomic<bool> isAnyMissed_{false};
    platform::AUParameterObserverToken token_;

    // The host's side: what is left to tell of those that found no room.
    std::uint32_t missedIndex_ = 0;
    enum class MissedStep : std::uint8_t { none, begin, value, end };
    MissedStep missedStep_ = MissedStep::none;
};

} // namespace fernhorn
