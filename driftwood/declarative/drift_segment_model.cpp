#include "driftwood/declarative/drift_segment_model.hpp"

#include <algorithm>

namespace driftwood {

void DriftSegmentedControlModel::select(int itemWithId) {
    const auto found =
        std::ranges::find(items.value(), itemWithId, [](const Item& item) { return item->id; });
    if (found != items.value().end()) {
        selectedItem.set(*found);
    }
}

void DriftSegmentedControlModel::userSelect(const Item& item) {
    const Item selected = selectedItem.value();
    if (selected != nullptr && *selected == *item) {
        if (hideSelection.value()) {
            hideSelection.set(false);
        } else {
            selectedItem.set(nullptr);
        }
    } else {
        hideSelection.set(false);
        selectedItem.set(item);
    }
    if (const auto callback = onSelectionChanged) {
        callback(selectedItem.value());
    }
}

bool DriftSegmentedControlModel::showsAsSelected(const DriftSegmentItem& item) const {
    return !hideSelection.value() && selectedItem.value() != nullptr &&
           *selectedItem.value() == item;
}

} // namespace driftwood
