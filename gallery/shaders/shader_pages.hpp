#pragma once

#include "gallery/page.hpp"

namespace gallery {

/// Adds the pages of the shader library.
void addShaderPages(std::vector<Page>& pages);

// One page each, every one in its own file.
Page waveformPage();
Page aboutPage();
Page supporterPage();
Page colorShadersPage();

} // namespace gallery
