#pragma once

#include "core/main_queue.hpp"
#include "core/observable.hpp"
#include "core/subscription.hpp"
#include "fernhorn/model/parameter_description.hpp"
#include "fernhorn/model/parameter_editor.hpp"
#include "fernhorn/model/pending_changes.hpp"
#include "fernhorn/model/value_mapping.hpp"
#include "platform/audio/au_parameter_tree.hpp"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fernhorn {

/// The unit as text, as the `AUParameter` carries it and labels show it: "%", "Hz", "dB", "MS" or
/// nothing.
[[nodiscard]] std::string_view unitSuffix(platform::AudioUnitParameterUnit unit);

/// One parameter of a plug-in: it makes the `AUParameter`, keeps the value that the interface
/// shows, and is the only way for controls to change it. Held by `std::shared_ptr`; a change that
/// is on its way to the main thread holds it, too. (Where nobody drains the queue, only as many
/// changes do as its ring has places.) Everything is main thread only, observers included, unless a
/// member says otherwise. The last owner should let go on the main thread.
class AudioParameter final : public std::enable_shared_from_this<AudioParameter> {
  public:
    using ValueIncrement = fernhorn::ValueIncrement;
    using HostTime = std::uint64_t (*)();

    /// `valueRange` must be a range, else the program stops; `defaultValue` should lie within.
    /// `valueStrings` name the values 0, 1, 2 … of an indexed parameter. Changes travel over
    /// `queue`, which has to outlive the parameter; writes to the audio unit bear `hostTime`.
    AudioParameter(
        platform::AUParameterAddress address, std::string identifier, std::string name,
        platform::AudioUnitParameterUnit units, ValueRange valueRange, float defaultValue,
        ValueIncrement valueIncrement, std::optional<std::vector<std::string>> valueStrings = {},
        std::optional<std::vector<platform::AUParameterAddress>> dependentParameterAddresses = {},
        core::MainQueue& queue = core::MainQueue::shared(),
        HostTime hostTime = &platform::AudioGetCurrentHostTime);

    /// The same with names for the arguments.
    explicit AudioParameter(ParameterDescription description);

    /// An inert placeholder: address 0, no name, the range 0…0.
    AudioParameter();
    ~AudioParameter();

    // What never changes. Any thread.
    [[nodiscard]] platform::AUParameterAddress address() const { return auParameter_->address(); }
    [[nodiscard]] const std::string& identifier() const { return auParameter_->identifier(); }
    /// What lists tell parameters apart by: the identifier.
    [[nodiscard]] const std::string& id() const { return identifier(); }
    [[nodiscard]] const std::string& name() const { return auParameter_->displayName(); }
    [[nodiscard]] platform::AudioUnitParameterUnit units() const { return auParameter_->unit(); }
    [[nodiscard]] ValueRange valueRange() const { return mapping_.range; }
    [[nodiscard]] float defaultValue() const { return defaultValue_; }
    [[nodiscard]] ValueIncrement valueIncrement() const { return mapping_.increment; }
    [[nodiscard]] const std::optional<std::vector<std::string>>& valueStrings() const {
        return auParameter_->valueStrings();
    }
    [[nodiscard]] const std::optional<std::vector<platform::AUParameterAddress>>&
    dependentParameterAddresses() const {
        return auParameter_->dependentParameters();
    }
    [[nodiscard]] const std::shared_ptr<platform::AUParameter>& auParameter() const {
        return auParameter_;
    }
    [[nodiscard]] HostAccess hostAccess() const { return hostAccess_; }

    /// The value the interface shows. Any thread; only the main thread changes it, when the queue
    /// is drained: without an interface it stays what it was, and what a host or a saved state is
    /// told is the value of the `auParameter`.
    [[nodiscard]] float value() const { return shown_.load(std::memory_order_relaxed); }
    /// The callback gets each value that differs from the one it got before. One that drains the
    /// queue sees newer values before it returns; those behind it then only see the newest.
    core::Subscription observeValue(std::function<void(float)> callback);

    /// The newest edit of a control that has not arrived at `value()` yet, else `value()`: where a
    /// gesture stands, also when the main queue was not drained since its last move.
    [[nodiscard]] float valueWithPendingEdits() const;
    /// The newest value there is, from either side, also one that only the `AUParameter` was told:
    /// what the signal processing starts from. Any thread.
    [[nodiscard]] float newestValue() const;

    /// Whether a control holds a gesture; changes from the audio unit's side are dropped meanwhile.
    /// `ParameterGesture` counts those that overlap.
    [[nodiscard]] bool isBeingInteractivelyEdited() const { return isBeingEdited_.value(); }
    void setBeingInteractivelyEdited(bool isBeingEdited) { isBeingEdited_.set(isBeingEdited); }
    core::Subscription observeIsBeingInteractivelyEdited(std::function<void(bool)> callback);

    /// Changes the parameter; any thread. The value is brought into the range, NaN to the lower
    /// bound. A `change` to the value that is shown has no effect as long as no other change of
    /// this parameter is on its way. Edits of the interface are written to the `AUParameter` on
    /// this thread, each of them. Every change then goes to `value()` over the main queue, in the
    /// order of the calls; one from the audio unit's side that arrives during a gesture is dropped.
    /// Of changes made at once on several threads, those written to the `AUParameter` are ordered
    /// by these writes: one that arrives behind a later write is not shown.
    ///
    /// When the main queue is full, changes from one source merge into the newest, and the newest
    /// of both sources arrive in the order they were made. A touch and a release then still reach
    /// the audio unit; to the main thread they carry a value like any other change.
    ///
    /// Takes no lock, allocates nothing, and makes no system call while the main thread is awake.
    /// (What observers of the `AUParameter` do is up to them.)
    void setValue(float newValue, ParameterEditor source, ParameterEditorState state);

    /// For labels: absolute cents are shown as hundreds of them.
    [[nodiscard]] float displayableValue() const;
    [[nodiscard]] std::string_view displayableSuffix() const { return unitSuffix(units()); }
    [[nodiscard]] float saveScaleFactor() const { return isInAbsoluteCents() ? 0.01F : 1.0F; }
    [[nodiscard]] float displayScaleFactor() const { return isInAbsoluteCents() ? 100.0F : 1.0F; }
    [[nodiscard]] bool isIndexed() const;

    // See `ValueMapping`. Any thread.
    [[nodiscard]] float normalizedPosition(float value) const;
    [[nodiscard]] float valueForNormalizedPosition(float position) const;
    [[nodiscard]] std::optional<float> midpointExponent(float midpoint) const;
    [[nodiscard]] int imageIndex(float value, int imageCount) const;

  private:
    friend class PendingChanges;
    friend class ParameterGesture;

    [[nodiscard]] bool isInAbsoluteCents() const;
    [[nodiscard]] bool hasNoEffect(float target) const;
    void overtake(platform::AUParameterWrite write);
    [[nodiscard]] bool isOvertaken(platform::AUParameterWrite write) const;
    /// Main thread: a change arrives. False when observers have let a newer one arrive meanwhile.
    bool apply(const ParameterChange& change);

    // What `setValue` touches comes first.
    const ValueMapping mapping_;
    std::atomic<float> shown_;
    core::MainQueue& queue_;
    const HostTime hostTime_;
    const std::shared_ptr<platform::AUParameter> auParameter_;
    PendingChanges pending_;
    const float defaultValue_;
    const HostAccess hostAccess_;
    core::ObserverList<> valueObservers_;
    core::Observable<bool> isBeingEdited_{false};

    // Of the writes to the `AUParameter`: the newest whose outcome is decided, so that those before
    // it are not shown any more, and the newest that has arrived here.
    std::atomic<platform::AUParameterWrite> decided_;
    std::atomic<platform::AUParameterWrite> arrived_;

    // The main thread's own.
    std::uint64_t shownCount_ = 0;
    int gestures_ = 0;        // that hold a touch
    int markingGestures_ = 0; // of these, those that mark the parameter
};

} // namespace fernhorn
