#include "gallery/fernhorn/fernhorn_pages.hpp"

namespace gallery {

void addFernhornPages(std::vector<Page>& pages) {
    for (const auto& make :
         {pluginWindowPage, pluginTabsPage, pluginStatesPage, pluginButtonsPage}) {
        pages.push_back(make());
    }
}

} // namespace gallery
