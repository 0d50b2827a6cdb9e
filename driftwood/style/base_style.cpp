#include "driftwood/style/base_style.hpp"

#include "driftwood/style/colors.hpp"

namespace driftwood {

BaseStyle::BaseStyle() : backgroundColor_(DWColors::Background::normal()) {}

void BaseStyle::note(StyleChange change) {
    if (edits_ > 0) {
        if (pending_ != StyleChange::layout) {
            pending_ = change;
        }
        return;
    }
    styleDidChange(change);
    observers_.notify(change);
}

void BaseStyle::endEdit() {
    if (--edits_ == 0) {
        if (const auto change = std::exchange(pending_, std::nullopt)) {
            note(*change);
        }
    }
}

} // namespace driftwood
