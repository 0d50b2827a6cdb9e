#pragma once

#include <string>
#include <vector>

namespace larkvox::testing {

using Sound = std::vector<float>;

/// A spoken sentence, always the same, from the machine's speech synthesiser; empty where there is
/// none. `sampleRate` in Hz.
[[nodiscard]] Sound spokenVoice(double sampleRate);

/// A saw at half of full scale.
[[nodiscard]] Sound sawCarrier(double frequency, double sampleRate, std::size_t samples);

/// How well the loudness of 16 bands from 150 to 6,500 Hz follows the voice's, -1…1: the mean
/// correlation of their envelopes in decibels, where the voice is to be heard, at the best delay up
/// to 70 ms.
[[nodiscard]] double envelopeCorrelation(const Sound& voice, const Sound& sound, double sampleRate);

/// How much a sound repeats itself with this pitch, -1…1.
[[nodiscard]] double repetition(const Sound& sound, double frequency, double sampleRate);

/// 16- or 32-bit files of whole or floating-point numbers: all channels, or empty where a file
/// cannot be read.
[[nodiscard]] std::vector<Sound> readWave(const std::string& path);
/// 32-bit floating-point numbers. The channels are equally long.
bool writeWave(const std::string& path, const std::vector<Sound>& channels, unsigned sampleRate);

} // namespace larkvox::testing
