#include "driftwood/style/segmented_cell_style.hpp"

#include "driftwood/style/styles.hpp"

namespace driftwood {

using State = StyledControlState;

SegmentedCellStyle::SegmentedCellStyle() : segmentPadding_{0, 21, 0, 21} {
    setFont(Styles::PropertiesTab::font());
    setTextColor(Styles::PropertiesTab::textColor());
    setSelectedTextColor(Styles::PropertiesTab::selectedTextColor());
    setHighlightedTextColor(Styles::PropertiesTab::highlightedTextColor());
    setBackgroundColor(Styles::Control::background());
    setBezelImages({{State::default_, "dwk-window-tab"},
                    {State::selected, "dwk-window-tab-selected"},
                    {State::highlighted, "dwk-window-tab-down"}});
}

} // namespace driftwood
