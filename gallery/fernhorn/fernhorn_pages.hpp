#pragma once

#include "gallery/page.hpp"

namespace gallery {

/// The pages of the plug-in kit, each from its own file.
void addFernhornPages(std::vector<Page>& pages);

Page pluginWindowPage();
Page pluginTabsPage();
Page pluginStatesPage();
Page pluginButtonsPage();

} // namespace gallery
