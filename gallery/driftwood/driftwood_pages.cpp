#include "gallery/driftwood/driftwood_pages.hpp"

namespace gallery {

void addDriftwoodButtonPages(std::vector<Page>& pages) {
    for (const auto& make :
         {styledButtonPage, kestrelPushButtonPage, buttonStylesPage, toolButtonPage,
          cornerButtonPage, backButtonPage, styledCheckBoxPage, favouriteCheckBoxPage,
          cursorButtonPage, popUpCyclingButtonPage, darkHighlightButtonPage}) {
        pages.push_back(make());
    }
}

void addDriftwoodTextPages(std::vector<Page>& pages) {
    for (const auto& make :
         {textFieldPage, textLabelPage, validatingFieldPage, propertiesPage, searchFieldPage}) {
        pages.push_back(make());
    }
}

void addDriftwoodControlPages(std::vector<Page>& pages) {
    for (const auto& make :
         {slidersPage, trackingSliderPage, popUpsPage, comboBoxPage, segmentedControlPage,
          simpleViewsPage, driftSliderPage, driftSegmentedControlPage, presetPanePage}) {
        pages.push_back(make());
    }
}

} // namespace gallery
