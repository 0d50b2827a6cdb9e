#pragma once

#include <bit>
#include <cstddef>
#include <functional>
#include <string>

// All of this is for the main thread.
namespace driftwood {

/// What a control is just now, as a set of flags: the key to every table of images and every rule
/// for colours. A value; values beyond the named flags are kept as they are.
class StyledControlState {
  public:
    static const StyledControlState default_; // the language takes the name without the line
    static const StyledControlState disabled;
    static const StyledControlState selected;
    static const StyledControlState highlighted; ///< pressed
    static const StyledControlState focused;
    static const StyledControlState on;
    static const StyledControlState mixed;
    static const StyledControlState invalid;

    constexpr StyledControlState() = default; ///< the empty set
    constexpr explicit StyledControlState(int rawValue) : rawValue_(rawValue) {}

    [[nodiscard]] constexpr int rawValue() const { return rawValue_; }
    [[nodiscard]] constexpr bool isEmpty() const { return rawValue_ == 0; }
    [[nodiscard]] constexpr int count() const {
        return std::popcount(static_cast<unsigned>(rawValue_));
    }

    [[nodiscard]] constexpr bool isSubset(StyledControlState of) const {
        return (rawValue_ & ~of.rawValue_) == 0;
    }
    [[nodiscard]] constexpr bool isSuperset(StyledControlState of) const {
        return of.isSubset(*this);
    }
    [[nodiscard]] constexpr bool isDisjoint(StyledControlState with) const {
        return (rawValue_ & with.rawValue_) == 0;
    }
    /// True when all flags of `flags` are in the set, so always for no flags.
    [[nodiscard]] constexpr bool contains(StyledControlState flags) const {
        return flags.isSubset(*this);
    }
    /// True when at least one flag of `flags` is in the set, so never for no flags.
    [[nodiscard]] constexpr bool containsAny(StyledControlState flags) const {
        return !isDisjoint(flags);
    }

    // Union, intersection, difference and symmetric difference.
    friend constexpr StyledControlState operator|(StyledControlState a, StyledControlState b) {
        return StyledControlState(a.rawValue_ | b.rawValue_);
    }
    friend constexpr StyledControlState operator&(StyledControlState a, StyledControlState b) {
        return StyledControlState(a.rawValue_ & b.rawValue_);
    }
    friend constexpr StyledControlState operator-(StyledControlState a, StyledControlState b) {
        return StyledControlState(a.rawValue_ & ~b.rawValue_);
    }
    friend constexpr StyledControlState operator^(StyledControlState a, StyledControlState b) {
        return StyledControlState(a.rawValue_ ^ b.rawValue_);
    }
    constexpr StyledControlState& operator|=(StyledControlState b) { return *this = *this | b; }
    constexpr StyledControlState& operator&=(StyledControlState b) { return *this = *this & b; }
    constexpr StyledControlState& operator-=(StyledControlState b) { return *this = *this - b; }
    constexpr StyledControlState& operator^=(StyledControlState b) { return *this = *this ^ b; }

    /// Puts flags into the set; true when one of them was not there yet.
    constexpr bool insert(StyledControlState flags) {
        const bool isNew = !contains(flags);
        *this |= flags;
        return isNew;
    }
    /// Takes flags out of the set; true when one of them was there.
    constexpr bool remove(StyledControlState flags) {
        const bool wasThere = containsAny(flags);
        *this -= flags;
        return wasThere;
    }

    /// The names of the flags in the order of their values, joined by ", "; flags without a name
    /// are left out, and the empty set gives the empty text.
    [[nodiscard]] std::string description() const;

    friend constexpr bool operator==(StyledControlState, StyledControlState) = default;

  private:
    int rawValue_ = 0;
};

inline constexpr StyledControlState StyledControlState::default_{1};
inline constexpr StyledControlState StyledControlState::disabled{2};
inline constexpr StyledControlState StyledControlState::selected{4};
inline constexpr StyledControlState StyledControlState::highlighted{8};
inline constexpr StyledControlState StyledControlState::focused{16};
inline constexpr StyledControlState StyledControlState::on{32};
inline constexpr StyledControlState StyledControlState::mixed{64};
inline constexpr StyledControlState StyledControlState::invalid{128};

} // namespace driftwood

template<>
struct std::hash<driftwood::StyledControlState> {
    std::size_t operator()(driftwood::StyledControlState state) const noexcept {
        return std::hash<int>{}(state.rawValue());
    }
};
