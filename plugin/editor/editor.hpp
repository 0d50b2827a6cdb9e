#pragma once

#include "fernhorn/plugin/editor_owner.hpp"
#include "fernhorn/plugin/host_edits.hpp"
#include "plugin/settings/vocoder_settings.hpp"

#include <functional>
#include <memory>

namespace larkvox {

/// The plug-in's window within a window of the host, and the values between the two: what the
/// window edits goes to the host, each edit between a touch and a release; what the host sets goes
/// to the window and never comes back. The host's window thread.
class Editor {
  public:
    /// What the window calls, on its own thread.
    struct Host {
        /// A value of the window's, for the host and the sound.
        std::function<void(std::size_t address, float value)> write;
        /// A touch or a release; may be empty.
        std::function<void(std::size_t address, bool isTouched)> touch;
    };

    /// `parent` is an X11 window, or 0 for none. Null where no window can be shown: a resource
    /// bundle is missing in `bundleFolder`, or another kind of application or window system is
    /// there; says so on standard error.
    static std::unique_ptr<Editor> open(const char* bundleFolder, WId parent, Host host);
    ~Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    /// The host has set a value. One that is not a number is ignored, and so is any while the
    /// window holds the parameter: hosts send back what they are sent, and late.
    void hostHasSet(std::size_t address, float value);

    [[nodiscard]] fernhorn::EditorOwner& owner() const { return *owner_; }

  private:
    explicit Editor(Host host);
    void tellHost();

    const Host host_;
    const std::shared_ptr<VocoderSettings> settings_;
    fernhorn::HostEdits edits_;
    platform::AUParameterObserverToken token_;
    std::unique_ptr<fernhorn::EditorOwner> owner_; ///< ends first
};

} // namespace larkvox
