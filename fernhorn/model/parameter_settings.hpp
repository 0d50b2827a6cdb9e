#pragma once

#include "fernhorn/model/audio_parameter.hpp"
#include "fernhorn/model/fern_audio_unit.hpp"
#include "fernhorn/model/hasher.hpp"
#include "platform/audio/snapshot.hpp"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace fernhorn {

/// A plug-in's parameters and the way between them, the audio unit's tree and its signal
/// processing. Plug-ins derive from it, hold it by `std::shared_ptr`, and call `setupParameters`,
/// `configureAudioUnit` and `setupParameterTreeListeners` in this order.
///
/// `setValue` may be called on any thread and takes no lock; everything else belongs to set-up
/// code, but may run while the tree reports changes. A callback that runs on a host's thread holds
/// the settings for as long as it lasts, so where they must end on the main thread, let go of them
/// after the host has stopped.
class ParameterSettings : public std::enable_shared_from_this<ParameterSettings> {
  public:
    using Parameters = std::vector<std::shared_ptr<AudioParameter>>;

    ParameterSettings() = default;
    virtual ~ParameterSettings() = default;
    ParameterSettings(const ParameterSettings&) = delete;
    ParameterSettings& operator=(const ParameterSettings&) = delete;

    /// In the order of the tree. `setValue` looks parameters up in the list that was set last.
    [[nodiscard]] virtual Parameters parameters() const;
    virtual void setParameters(Parameters parameters);

    /// "CFBundleShortVersionString" of the main bundle, else "Unknown".
    [[nodiscard]] virtual std::string pluginVersion() const;

    /// The unit served, or null when there is none or it is gone. It is not owned.
    [[nodiscard]] virtual std::shared_ptr<FernAudioUnit> audioUnit() const;
    virtual void setAudioUnit(const std::shared_ptr<FernAudioUnit>& audioUnit);

    /// Replaces `parameters`.
    virtual void setupParameters(Parameters parameters);

    /// Serves `audioUnit` from now on: gives it a flat tree of the parameters and hands the current
    /// values to its signal processing.
    virtual void configureAudioUnit(const std::shared_ptr<FernAudioUnit>& audioUnit);

    /// Differs when any value differs; only comparable within one run of the program.
    [[nodiscard]] virtual std::int64_t paramsHash() const;
    /// For further state that belongs into `paramsHash`. Does nothing here.
    virtual void hashAdditionalValues(Hasher& into) const;

    /// Listens to the audio unit's tree, and supplies its texts. Each of the three is skipped when
    /// the unit or its tree is missing. A tree that outlives the settings calls nothing.
    virtual void setupParameterTreeListeners();

    /// Routes a change to the first parameter with that address, if there is one, then in any case
    /// to the signal processing. Any thread.
    virtual void setValue(float value, platform::AUParameterAddress address,
                          ParameterEditor source);

    /// Called, on the thread of the change, after one to a parameter that has dependents: the
    /// place to compute and set them. Does nothing here.
    virtual void updateDependentValues(platform::AUParameterAddress address, float value);

  private:
    /// What a change needs to find its way.
    struct Routes {
        Parameters parameters;
        std::unordered_map<platform::AUParameterAddress, AudioParameter*> byAddress;
        std::weak_ptr<FernAudioUnit> audioUnit;
    };
    platform::Snapshot<Routes> routes_;
};

/// The text of a parameter's value for hosts: "-" for a missing or NaN one; the value string whose
/// index the value is, cut to a whole number; else the number without decimal places as the user's
/// locale writes it. With value strings, a finite number beyond 64 bits stops the program. Any
/// thread.
[[nodiscard]] std::string valueText(const platform::AUParameter& parameter, const float* value);

} // namespace fernhorn
