#pragma once

#include "core/main_queue.hpp"
#include "fernhorn/model/parameter_editor.hpp"

#include <atomic>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>

namespace fernhorn {

class AudioParameter;

/// One change of a parameter's value.
struct ParameterChange {
    float value = 0;
    ParameterEditor source = ParameterEditor::parameterObserver;
    /// The write to the `AUParameter` that it belongs to; absent for what was only set here.
    std::optional<platform::AUParameterWrite> write;
};

/// The changes of one parameter that are on their way to the main thread: how many there are, and
/// the newest of each source where the main queue has no room for every single one.
class PendingChanges final : public core::Mergeable {
  public:
    explicit PendingChanges(AudioParameter& parameter) : parameter_(parameter) {}
    PendingChanges(const PendingChanges&) = delete;
    PendingChanges& operator=(const PendingChanges&) = delete;
    ~PendingChanges() = default;

    /// Any thread. What happened before a change arrived is seen after this has said false.
    [[nodiscard]] bool isAny() const { return count_.load(std::memory_order_seq_cst) != 0; }

    /// Any thread. The newest edit from a control, if one is pending.
    [[nodiscard]] std::optional<float> newestEdit() const;

    /// Any thread. The newest change, unless it is a write to the `AUParameter`.
    [[nodiscard]] std::optional<float> newestUnwritten() const;

    /// Any thread. Sends a change on its way.
    void send(const ParameterChange& change, core::MainQueue& queue);

    /// Main thread. A change has arrived, or was dropped there.
    void arrived(ParameterEditor source) { subtract(source); }

  private:
    struct Arrival;
    static constexpr std::uint64_t empty = ~std::uint64_t{0};

    void merge(const ParameterChange& change, core::MainQueue& queue);
    void subtract(ParameterEditor source);
    [[nodiscard]] std::uint64_t takeNewest(ParameterEditor source,
                                           platform::AUParameterWrite last) noexcept;

    bool leaveLine() noexcept override;
    void take() noexcept override;
    void apply() override;
    void discard() noexcept override;

    // Lower half: changes from the audio unit's side; upper half: edits of controls.
    std::atomic<std::uint64_t> count_{0};
    std::atomic<float> newestEdit_{0};
    std::atomic<float> newestUnwritten_{std::numeric_limits<float>::quiet_NaN()}; // NaN: none
    AudioParameter& parameter_;

    // By source: a number of the `AUParameter`, which tells what came first, above the bits of the
    // value. No value is NaN, so `empty` is none.
    std::atomic<std::uint64_t> newest_[2]{empty, empty};
    std::shared_ptr<AudioParameter> inLine_;    // where somebody will come and take it out
    std::shared_ptr<AudioParameter> outOfLine_; // the main thread's own
    std::uint64_t taken_[2]{empty, empty};      // the main thread's own
};

} // namespace fernhorn
