#pragma once

#include "core/snapshot.hpp"
#include "fernhorn/model/audio_parameter.hpp"
#include "fernhorn/model/fern_audio_unit.hpp"
#include "fernhorn/model/hasher.hpp"
#include "fernhorn/model/parameter_state.hpp"

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace fernhorn {

/// A plug-in's parameters and the way between them, the audio unit's tree and its signal
/// processing. Plug-ins derive from it and call `setupParameters`, `configureAudioUnit` and
/// `setupParameterTreeListeners` in this order; a subclass may do so in its constructor.
///
/// `setValue` may be called on any thread and takes no lock; everything else belongs to set-up
/// code, but may run while the tree reports changes. Held by `std::shared_ptr`, the settings are
/// held by a callback that runs on a host's thread for as long as it lasts; where they must end on
/// the main thread, let go of them after the host has stopped. Held by value, their end waits for
/// such callbacks; a subclass then calls `stopListening` first in its destructor.
class ParameterSettings : public std::enable_shared_from_this<ParameterSettings> {
  public:
    using Parameters = std::vector<std::shared_ptr<AudioParameter>>;

    ParameterSettings();
    virtual ~ParameterSettings();
    ParameterSettings(const ParameterSettings&) = delete;
    ParameterSettings& operator=(const ParameterSettings&) = delete;

    /// In the order of the tree. `setValue` looks parameters up in the list that was set last.
    [[nodiscard]] virtual Parameters parameters() const;
    virtual void setParameters(Parameters parameters);
    /// The first parameter with that address or identifier, or null. Any thread but an audio
    /// thread.
    [[nodiscard]] std::shared_ptr<AudioParameter>
    parameterWithAddress(platform::AUParameterAddress address) const;
    [[nodiscard]] std::shared_ptr<AudioParameter>
    parameterWithIdentifier(std::string_view identifier) const;

    /// "CFBundleShortVersionString" of the main bundle, else "Unknown".
    [[nodiscard]] virtual std::string pluginVersion() const;

    /// The unit served, or null when there is none or it is gone. It is not owned.
    [[nodiscard]] virtual std::shared_ptr<FernAudioUnit> audioUnit() const;
    virtual void setAudioUnit(const std::shared_ptr<FernAudioUnit>& audioUnit);

    /// Replaces `parameters`.
    virtual void setupParameters(Parameters parameters);

    /// Serves `audioUnit` from now on: gives it a flat tree of the parameters (without those hidden
    /// from hosts), unless it has the tree
    /// of just these already, and hands the values to its signal processing: those shown, or newer
    /// ones that are on their way there.
    virtual void configureAudioUnit(const std::shared_ptr<FernAudioUnit>& audioUnit);

    /// Differs when any value differs; only comparable within one run of the program.
    [[nodiscard]] virtual std::int64_t paramsHash() const;
    /// For further state that belongs into `paramsHash`. Does nothing here.
    virtual void hashAdditionalValues(Hasher& into) const;

    /// Listens to the audio unit's tree, and supplies its texts. Each of the three is skipped when
    /// the unit or its tree is missing. A tree that outlives the settings calls nothing.
    virtual void setupParameterTreeListeners();

    /// Routes a change to the first parameter with that address, if there is one, then in any case
    /// to the signal processing. Where several threads write one parameter of the tree at once, the
    /// signal processing may be given a value twice, and last the one that the tree has. Any
    /// thread.
    virtual void setValue(float value, platform::AUParameterAddress address,
                          ParameterEditor source);

    /// Called, on the thread of the change, after one to a parameter that has dependents: the
    /// place to compute and set them. Does nothing here.
    virtual void updateDependentValues(platform::AUParameterAddress address, float value);

    /// What a host is to keep: the values that the audio unit has (never those that are shown,
    /// which may be older), whatever was restored for parameters that this version does not know,
    /// and the texts. Any thread but an audio thread.
    [[nodiscard]] virtual ParameterState state() const;

    /// Brings back a state: `migrate` is called for one of an older version, then every parameter
    /// is written to the audio unit as by a host, with the given originator. Parameters that it
    /// does not name get their default value. False, and nothing is changed, for a state whose
    /// version is newer than `stateVersion`. Any thread but an audio thread.
    virtual bool restore(ParameterState state, platform::AUParameterObserverToken originator = {});

    /// The version that `state` writes. 1 here.
    [[nodiscard]] virtual int stateVersion() const { return 1; }
    /// Turns a state of an older version into one of `stateVersion`. Does nothing here.
    virtual void migrate(ParameterState& older) const;

    /// A text that goes with the state: a name, a path. Empty until it is set or restored. Any
    /// thread but an audio thread.
    [[nodiscard]] std::string stateText(const std::string& name) const;
    void setStateText(const std::string& name, std::string text);

  protected:
    /// The tree calls nothing any more; does not return before callbacks on other threads have.
    /// For destructors.
    void stopListening();

  private:
    class Listener;
    void restoreValue(AudioParameter& parameter, float value, bool isListenedTo,
                      platform::AUParameterObserverToken originator);

    /// What a change needs to find its way.
    struct Routes {
        Parameters parameters;
        std::unordered_map<platform::AUParameterAddress, AudioParameter*> byAddress;
        std::weak_ptr<FernAudioUnit> audioUnit;
    };
    platform::Snapshot<Routes> routes_;
    const std::shared_ptr<Listener> listener_;

    mutable std::mutex stateMutex_; // for what follows; never locked by `setValue`
    std::weak_ptr<platform::AUParameterTree> listenedTree_;
    std::map<std::string, float> unknownValues_;
    std::map<std::string, std::string> texts_;
};

/// The text of a parameter's value for hosts: "-" for a missing or NaN one; the value string whose
/// index the value is, cut to a whole number; else the number without decimal places as the user's
/// locale writes it. With value strings, a finite number beyond 64 bits stops the program. Any
/// thread.
[[nodiscard]] std::string valueText(const platform::AUParameter& parameter, const float* value);

} // namespace fernhorn
