#pragma once

#include "driftwood/style/asset_source.hpp"
#include "driftwood/style/styled_control_state.hpp"

#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <vector>

// All of this is for the main thread.
namespace driftwood {

/// A table from states to images, and the one rule by which a state finds its image. A value; null
/// images are not stored, so that a missing asset is the same as a missing entry.
class StateImages {
  public:
    /// An image for one state.
    struct Entry {
        StyledControlState state;
        Image image;
        friend bool operator==(const Entry&, const Entry&) = default;
    };
    /// The same by the image's name in the asset source.
    struct Named {
        StyledControlState state;
        std::string_view image;
    };

    StateImages() = default;
    /// The images of those names from the asset source. Of two entries for a state the later
    /// counts.
    StateImages(std::initializer_list<Named> entries);

    /// Sets the image for exactly this state, or takes it away when the image is null.
    void set(StyledControlState state, Image image);
    /// The entry for exactly this state; null when there is none.
    [[nodiscard]] const Image& at(StyledControlState state) const;

    /// The best match: of the entries whose flags are all in `state`, the one with the most flags,
    /// `default` not counted; without any, the entry for `default`; without that, null.
    ///
    /// Of entries with equally many flags the one with `highlighted` counts, since a press has to
    /// be seen at once; otherwise the one with the larger raw value.
    ///
    /// The reference is good until the table changes.
    [[nodiscard]] const Image& image(StyledControlState state) const;

    [[nodiscard]] bool isEmpty() const { return entries_.empty(); }
    [[nodiscard]] std::size_t size() const { return entries_.size(); }
    /// In the order of preference.
    [[nodiscard]] auto begin() const { return entries_.begin(); }
    [[nodiscard]] auto end() const { return entries_.end(); }

    friend bool operator==(const StateImages&, const StateImages&) = default;

  private:
    // In the order of preference: the first that fits is the best. An exact match needs no case of
    // its own, since nothing that fits has more flags, or as many and a larger raw value.
    std::vector<Entry> entries_;
};

} // namespace driftwood
