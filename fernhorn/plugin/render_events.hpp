#pragma once

#include "fernhorn/model/fern_audio_unit.hpp"

#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace fernhorn {

/// Renders blocks in pieces, so that the parameter events which a host has scheduled take effect at
/// their samples, and afterwards writes the new values to the tree, from where the interface
/// follows. One render thread; allocates nothing and takes no lock after it is made.
class RenderEvents {
  public:
    /// For the parameters that the unit's tree has now; there has to be one. `originator` goes with
    /// the writes, so that they do not come back to the host as edits.
    explicit RenderEvents(FernAudioUnit& unit, platform::AUParameterObserverToken originator = {});

    /// Calls `render(firstFrame, frameCount)` for the pieces of the block, from frame 0 on and
    /// without gaps; between them `setParameter` of the unit gets the events. A ramp is a step to
    /// its end: signal processing that smooths its parameters makes a ramp of it.
    template<class Render>
    void render(platform::AUEventSampleTime blockStart, platform::AUAudioFrameCount frameCount,
                Render&& render) {
        platform::AUAudioFrameCount done = 0;
        unit_.renderParameterEvents(
            blockStart, frameCount,
            [&](const platform::AUParameterEvent& event, platform::AUAudioFrameCount offset) {
                if (offset > done) {
                    render(done, offset - done);
                    done = offset;
                }
                apply(event);
            });
        if (done < frameCount) {
            render(done, frameCount - done);
        }
        publish();
    }

  private:
    struct Parameter {
        std::shared_ptr<platform::AUParameter> unitSide;
        float value = 0;
        bool isChanged = false;
    };

    void apply(const platform::AUParameterEvent& event);
    void publish();

    FernAudioUnit& unit_;
    const platform::AUParameterObserverToken originator_;
    std::vector<Parameter> parameters_;
    std::unordered_map<platform::AUParameterAddress, std::size_t> indices_;
    std::vector<std::size_t> changed_; // in this block; never grows beyond its capacity
};

} // namespace fernhorn
