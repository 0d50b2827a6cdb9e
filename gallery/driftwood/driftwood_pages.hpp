#pragma once

#include "gallery/page.hpp"

namespace gallery {

/// The pages of the kit's buttons, each from its own file.
void addDriftwoodButtonPages(std::vector<Page>& pages);
/// The pages of its text fields.
void addDriftwoodTextPages(std::vector<Page>& pages);

/// Those of its other controls and of the declarative components.
void addDriftwoodControlPages(std::vector<Page>& pages);

Page styledButtonPage();
Page kestrelPushButtonPage();
Page buttonStylesPage();
Page toolButtonPage();
Page cornerButtonPage();
Page backButtonPage();
Page styledCheckBoxPage();
Page favouriteCheckBoxPage();
Page cursorButtonPage();
Page popUpCyclingButtonPage();
Page darkHighlightButtonPage();

Page textFieldPage();
Page textLabelPage();
Page validatingFieldPage();
Page propertiesPage();
Page searchFieldPage();
Page slidersPage();
Page trackingSliderPage();
Page popUpsPage();
Page comboBoxPage();
Page segmentedControlPage();
Page simpleViewsPage();
Page driftSliderPage();
Page driftSegmentedControlPage();
Page presetPanePage();

} // namespace gallery
