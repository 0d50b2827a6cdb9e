#pragma once

#include "core/observable.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace driftwood {

/// One segment; shared, and the same as another when the ids are equal. Main thread.
struct DriftSegmentItem {
    DriftSegmentItem(int identifier, std::string text) : id(identifier), title(std::move(text)) {}

    const int id;
    const std::string title; ///< UTF-8
    bool isHidden = false;   ///< for the host's use: the control lays every item out

    friend bool operator==(const DriftSegmentItem& a, const DriftSegmentItem& b) {
        return a.id == b.id;
    }
};

/// The items of a row of segments and which of them is selected: the single source of truth of the
/// control. Main thread.
class DriftSegmentedControlModel {
  public:
    using Item = std::shared_ptr<const DriftSegmentItem>;
    using Items = std::vector<Item>;

    explicit DriftSegmentedControlModel(Items initialItems) : items(std::move(initialItems)) {}

    core::Observable<Items> items;                ///< none of them null
    core::Observable<bool> hideSelection;         ///< true: kept, but not shown
    core::Observable<Item> selectedItem;          ///< null: none
    std::function<void(Item)> onSelectionChanged; ///< after a choice of the user; null: none now

    /// The first item with that id; without the callback. An unknown id changes nothing.
    void select(int itemWithId);
    /// A click: selects the item, deselects the selected one, or shows a hidden selection again.
    void userSelect(const Item& item);
    /// Whether the item is drawn as selected.
    [[nodiscard]] bool showsAsSelected(const DriftSegmentItem& item) const;
};

} // namespace driftwood
