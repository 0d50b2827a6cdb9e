#include "plugin/testing/sound.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <numbers>

namespace larkvox::testing {

namespace {

constexpr std::size_t frame = 1024;
constexpr std::size_t bandCount = 16;

void transform(std::vector<std::complex<double>>& values) {
    const std::size_t count = values.size();
    for (std::size_t i = 1, j = 0; i < count; ++i) {
        std::size_t bit = count >> 1U;
        for (; (j & bit) != 0; bit >>= 1U) {
            j ^= bit;
        }
        j ^= bit;
        if (i < j) {
            std::swap(values[i], values[j]);
        }
    }
    for (std::size_t length = 2; length <= count; length *= 2) {
        const auto turn = std::polar(1.0, -2 * std::numbers::pi / static_cast<double>(length));
        for (std::size_t start = 0; start < count; start += length) {
            std::complex<double> factor = 1;
            for (std::size_t i = start; i < start + length / 2; ++i) {
                const auto other = values[i + length / 2] * factor;
                values[i + length / 2] = values[i] - other;
                values[i] += other;
                factor *= turn;
            }
        }
    }
}

using Frames = std::vector<std::array<double, bandCount>>;

/// In decibels, every 5 ms.
Frames bandLevels(const Sound& sound, double sampleRate) {
    Frames frames;
    const auto hop = static_cast<std::size_t>(sampleRate * 0.005);
    std::vector<std::complex<double>> values(frame);
    std::array<std::size_t, bandCount + 1> edges{}; // in steps of the spectrum
    for (std::size_t band = 0; band <= bandCount; ++band) {
        const double edge = 150 * std::pow(6500.0 / 150, static_cast<double>(band) / bandCount);
        edges.at(band) = static_cast<std::size_t>(std::ceil(edge * frame / sampleRate));
    }
    for (std::size_t start = 0; start + frame <= sound.size(); start += hop) {
        for (std::size_t i = 0; i < frame; ++i) {
            const double window =
                0.5 - 0.5 * std::cos(2 * std::numbers::pi * static_cast<double>(i) / frame);
            values[i] = window * static_cast<double>(sound[start + i]);
        }
        transform(values);
        auto& levels = frames.emplace_back();
        for (std::size_t band = 0; band < bandCount; ++band) {
            double power = 1e-6;
            for (std::size_t bin = edges.at(band); bin < edges.at(band + 1); ++bin) {
                power += std::norm(values[bin]);
            }
            levels.at(band) = 10 * std::log10(power);
        }
    }
    return frames;
}

double correlation(const std::vector<double>& a, const std::vector<double>& b) {
    const auto mean = [](const std::vector<double>& values) {
        double sum = 0;
        for (const double value : values) {
            sum += value;
        }
        return sum / static_cast<double>(values.size());
    };
    const double meanA = mean(a);
    const double meanB = mean(b);
    double ab = 0;
    double aa = 0;
    double bb = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        ab += (a[i] - meanA) * (b[i] - meanB);
        aa += (a[i] - meanA) * (a[i] - meanA);
        bb += (b[i] - meanB) * (b[i] - meanB);
    }
    return aa > 0 && bb > 0 ? ab / std::sqrt(aa * bb) : 0;
}

double loudest(const Frames& frames) {
    double level = -1000;
    for (const auto& levels : frames) {
        level = std::max(level, *std::ranges::max_element(levels));
    }
    return level;
}

} // namespace

Sound spokenVoice(double sampleRate) {
    const auto file = std::filesystem::temp_directory_path() /
                      ("larkvox-voice-" + std::to_string(std::rand()) + ".wav");
    const std::string command =
        "espeak-ng -v en -w '" + file.string() +
        "' 'The quick brown fox jumps over the lazy dog, while seven silver ships sail slowly past "
        "the shining shore.' >/dev/null 2>&1";
    const bool spoke = std::system(command.c_str()) == 0;
    const auto channels = spoke ? readWave(file.string()) : std::vector<Sound>{};
    std::filesystem::remove(file);
    if (channels.empty()) {
        return {};
    }
    const Sound& spoken = channels.front();
    const double step = 22050 / sampleRate;
    Sound voice(static_cast<std::size_t>(static_cast<double>(spoken.size() - 1) / step));
    for (std::size_t i = 0; i < voice.size(); ++i) {
        const double place = static_cast<double>(i) * step;
        const auto before = static_cast<std::size_t>(place);
        voice[i] = std::lerp(spoken[before], spoken[before + 1],
                             static_cast<float>(place - static_cast<double>(before)));
    }
    return voice;
}

Sound sawCarrier(double frequency, double sampleRate, std::size_t samples) {
    Sound saw(samples);
    for (std::size_t i = 0; i < samples; ++i) {
        const double turns = static_cast<double>(i) * frequency / sampleRate;
        saw[i] = static_cast<float>(turns - std::floor(turns) - 0.5);
    }
    return saw;
}

double envelopeCorrelation(const Sound& voice, const Sound& sound, double sampleRate) {
    const auto voiceLevels = bandLevels(voice, sampleRate);
    const auto levels = bandLevels(sound, sampleRate);
    const double top = loudest(voiceLevels);
    const double soundTop = loudest(levels);
    double best = -1;
    for (std::size_t delay = 0; delay < 15; ++delay) {
        double sum = 0;
        for (std::size_t band = 0; band < bandCount; ++band) {
            std::vector<double> a;
            std::vector<double> b;
            for (std::size_t i = 0; i < voiceLevels.size() && i + delay < levels.size(); ++i) {
                if (*std::ranges::max_element(voiceLevels[i]) > top - 45) {
                    a.push_back(std::max(voiceLevels[i].at(band), top - 50));
                    b.push_back(std::max(levels[i + delay].at(band), soundTop - 60));
                }
            }
            sum += correlation(a, b);
        }
        best = std::max(best, sum / bandCount);
    }
    return best;
}

double repetition(const Sound& sound, double frequency, double sampleRate) {
    const auto period = static_cast<std::size_t>(std::lround(sampleRate / frequency));
    double product = 0;
    double power = 0;
    for (std::size_t i = period; i < sound.size(); ++i) {
        product += static_cast<double>(sound[i]) * static_cast<double>(sound[i - period]);
        power += static_cast<double>(sound[i]) * static_cast<double>(sound[i]);
    }
    return power > 0 ? product / power : 0;
}

std::vector<Sound> readWave(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    const auto number = [&bytes](std::size_t at, std::size_t size) {
        std::uint32_t value = 0;
        std::memcpy(&value, bytes.data() + at, size);
        return value;
    };
    std::uint32_t format = 0;
    std::uint32_t channelCount = 0;
    std::uint32_t bits = 0;
    for (std::size_t at = 12; at + 8 <= bytes.size();) {
        const auto name = bytes.substr(at, 4);
        const auto size = std::min<std::size_t>(number(at + 4, 4), bytes.size() - at - 8);
        const std::size_t start = at + 8;
        if (name == "fmt ") {
            format = number(start, 2) == 0xfffe ? number(start + 24, 2) : number(start, 2);
            channelCount = number(start + 2, 2);
            bits = number(start + 14, 2);
        } else if (name == "data" && channelCount > 0) {
            std::vector<Sound> channels(channelCount);
            std::size_t channel = 0;
            for (std::size_t i = start; i + bits / 8 <= start + size; i += bits / 8) {
                float value = 0;
                if (format == 3) {
                    std::memcpy(&value, bytes.data() + i, sizeof value);
                } else {
                    const std::uint32_t raw = number(i, bits / 8) << (32 - bits);
                    value = static_cast<float>(static_cast<std::int32_t>(raw)) * 0x1p-31F;
                }
                channels[channel].push_back(value);
                channel = (channel + 1) % channelCount;
            }
            return channels;
        }
        at = start + size + size % 2;
    }
    return {};
}

bool writeWave(const std::string& path, const std::vector<Sound>& channels, unsigned sampleRate) {
    std::string bytes;
    const auto put = [&bytes](std::uint32_t value, std::size_t size) {
        bytes.append(reinterpret_cast<const char*>(&value), size);
    };
    const auto count = static_cast<std::uint32_t>(channels.size());
    const auto size = static_cast<std::uint32_t>(channels.front().size() * count * 4);
    bytes += "RIFF";
    put(36 + size, 4);
    bytes += "WAVEfmt ";
    put(16, 4);
    put(3, 2);
    put(count, 2);
    put(sampleRate, 4);
    put(sampleRate * count * 4, 4);
    put(count * 4, 2);
    put(32, 2);
    bytes += "data";
    put(size, 4);
    for (std::size_t i = 0; i < channels.front().size(); ++i) {
        for (const Sound& channel : channels) {
            bytes.append(reinterpret_cast<const char*>(&channel[i]), 4);
        }
    }
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    return file.good();
}

} // namespace larkvox::testing
