#pragma once

#include "gallery/page.hpp"

namespace gallery {

/// Every dialog of the updater.
void addUpdatePages(std::vector<Page>& pages);

} // namespace gallery
