#include "gallery/shaders/shader_pages.hpp"

namespace gallery {

void addShaderPages(std::vector<Page>& pages) {
    for (const auto& make : {waveformPage, aboutPage, supporterPage, colorShadersPage}) {
        pages.push_back(make());
    }
}

} // namespace gallery
