#pragma once

#include <algorithm>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace gallery {

/// A sound with its properties, as a synthesiser keeps it.
struct Preset {
    std::string constant = "preset"; ///< what expressions call it, without the "$"
    /// Cents, or an expression of constants, which is worked out as the sound plays.
    std::variant<std::monostate, double, std::string> tune = 0.0;
    double level = 80;  ///< per cent
    double cutoff = 60; ///< per cent of the way from 20 Hz to 20 kHz
    double attack = 5;  ///< milliseconds
    int wave = 0;
    int voices = 1;
    std::string category;
    bool isFavourite = false;
    bool followsKey = true;

    friend bool operator==(const Preset&, const Preset&) = default;
};

/// Presets, the first so many of which are edited together, and one step back. No widget; one
/// thread.
class PresetEdits {
  public:
    explicit PresetEdits(std::vector<Preset> presets) : presets_(std::move(presets)) {}

    [[nodiscard]] std::span<const Preset> presets() const { return presets_; }
    [[nodiscard]] std::span<const Preset> selected() const {
        return std::span(presets_).first(count_);
    }
    /// Selects the first so many, all of them at most.
    void select(std::size_t count) { count_ = std::min(count, presets_.size()); }

    /// The value that the selected ones have in common; none where they differ.
    template<class T>
    [[nodiscard]] std::optional<T> common(T Preset::*property) const {
        for (const Preset& preset : selected()) {
            if (preset.*property != selected().front().*property) {
                return {};
            }
        }
        return count_ > 0 ? std::optional(selected().front().*property) : std::nullopt;
    }
    /// Their different values, the least one first.
    template<class T>
    [[nodiscard]] std::vector<T> values(T Preset::*property) const {
        std::set<T> all;
        for (const Preset& preset : selected()) {
            all.insert(preset.*property);
        }
        return {all.begin(), all.end()};
    }

    /// What follows until the next begin is one step.
    void beginStep() { before_ = presets_; }
    template<class T>
    void set(T Preset::*property, const T& value) {
        for (Preset& preset : std::span(presets_).first(count_)) {
            preset.*property = value;
        }
    }
    /// A step of one value.
    template<class T>
    void change(T Preset::*property, const T& value) {
        beginStep();
        set(property, value);
    }

    [[nodiscard]] bool canUndo() const { return before_ && *before_ != presets_; }
    void undo() {
        if (before_) {
            presets_ = std::move(*before_);
            before_.reset();
        }
    }

  private:
    std::vector<Preset> presets_;
    std::size_t count_ = 0;
    std::optional<std::vector<Preset>> before_; // the last step
};

} // namespace gallery
