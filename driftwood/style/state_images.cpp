#include "driftwood/style/state_images.hpp"

#include <algorithm>
#include <tuple>
#include <utility>

namespace driftwood {
namespace {

using State = StyledControlState;

bool isPreferred(State a, State b) {
    const auto rank = [](State state) {
        return std::tuple((state - State::default_).count(), state.contains(State::highlighted),
                          static_cast<unsigned>(state.rawValue()));
    };
    return rank(a) > rank(b);
}

const Image noImage;

} // namespace

StateImages::StateImages(std::initializer_list<Named> entries) {
    entries_.reserve(entries.size());
    for (const Named& entry : entries) {
        set(entry.state, assetSource().image(entry.image));
    }
}

void StateImages::set(State state, Image image) {
    const auto place = std::ranges::lower_bound(entries_, state, isPreferred, &Entry::state);
    const bool isThere = place != entries_.end() && place->state == state;
    if (isThere && image) {
        place->image = std::move(image);
    } else if (isThere) {
        entries_.erase(place);
    } else if (image) {
        entries_.insert(place, {state, std::move(image)});
    }
}

const Image& StateImages::at(State state) const {
    const auto found = std::ranges::find(entries_, state, &Entry::state);
    return found == entries_.end() ? noImage : found->image;
}

const Image& StateImages::image(State state) const {
    for (const Entry& entry : entries_) {
        if (entry.state.isSubset(state)) {
            return entry.image;
        }
    }
    return at(State::default_);
}

} // namespace driftwood
