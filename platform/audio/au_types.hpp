#pragma once

#include <cstdint>

namespace platform {

/// Names a parameter within one audio unit, for hosts that remember automation.
using AUParameterAddress = std::uint64_t;
/// A parameter's value.
using AUValue = float;
/// A position on a render timeline, in sample frames.
using AUEventSampleTime = std::int64_t;
/// A number of sample frames in a render call.
using AUAudioFrameCount = std::uint32_t;

/// What a parameter's value counts. The raw values are part of the contract with hosts.
enum class AudioUnitParameterUnit : std::uint32_t {
    generic = 0,
    indexed = 1,
    boolean = 2,
    percent = 3,
    seconds = 4,
    sampleFrames = 5,
    phase = 6,
    rate = 7,
    hertz = 8,
    cents = 9,
    relativeSemiTones = 10,
    midiNoteNumber = 11,
    midiController = 12,
    decibels = 13,
    linearGain = 14,
    degrees = 15,
    equalPowerCrossfade = 16,
    mixerFaderCurve1 = 17,
    pan = 18,
    meters = 19,
    absoluteCents = 20,
    octaves = 21,
    bpm = 22,
    beats = 23,
    milliseconds = 24,
    ratio = 25,
    customUnit = 26,
};

/// What a host may do with a parameter: a combination of the flags below.
using AudioUnitParameterOptions = std::uint32_t;
inline constexpr AudioUnitParameterOptions kAudioUnitParameterFlag_HasClump = 0x0010'0000;
inline constexpr AudioUnitParameterOptions kAudioUnitParameterFlag_ValuesHaveStrings = 0x0020'0000;
inline constexpr AudioUnitParameterOptions kAudioUnitParameterFlag_CanRamp = 0x0200'0000;
inline constexpr AudioUnitParameterOptions kAudioUnitParameterFlag_IsGlobalMeta = 0x1000'0000;
inline constexpr AudioUnitParameterOptions kAudioUnitParameterFlag_IsReadable = 0x4000'0000;
inline constexpr AudioUnitParameterOptions kAudioUnitParameterFlag_IsWritable = 0x8000'0000;

/// What a write means to a host that records automation: a new value, or the begin or end of a
/// gesture (which carry a value, too).
enum class AUParameterAutomationEventType : std::uint32_t { value = 0, touch = 1, release = 2 };

/// One write as an automation observer sees it.
struct AUParameterAutomationEvent {
    std::uint64_t hostTime = 0; ///< as of `AudioGetCurrentHostTime`; 0 when the writer gave none
    AUParameterAddress address = 0;
    AUValue value = 0;
    AUParameterAutomationEventType eventType = AUParameterAutomationEventType::value;
};

/// Identifies a registered observer, and with it the originator of a write, who is not called for
/// it. Unique in the process; the default one identifies nobody.
struct AUParameterObserverToken {
    std::uint64_t number = 0;
    explicit operator bool() const { return number != 0; }
    friend bool operator==(AUParameterObserverToken, AUParameterObserverToken) = default;
};

/// Numbers the writes to one parameter, from all threads, in the order in which its value took
/// them.
struct AUParameterWrite {
    std::uint32_t number = 0; ///< wraps round

    /// Whether this came before `other`; those compared are less than half of the numbers apart.
    [[nodiscard]] bool isBefore(AUParameterWrite other) const {
        return static_cast<std::int32_t>(number - other.number) < 0;
    }
    /// The same for any two, as seen from `last`, the newest there is.
    [[nodiscard]] bool isBefore(AUParameterWrite other, AUParameterWrite last) const {
        return last.number - number > last.number - other.number;
    }
    friend bool operator==(AUParameterWrite, AUParameterWrite) = default;
};

/// Now, in host time units: nanoseconds on the machine's monotonic clock. Makes no system call on
/// the systems this runs on. Any thread.
[[nodiscard]] std::uint64_t AudioGetCurrentHostTime() noexcept;

} // namespace platform
