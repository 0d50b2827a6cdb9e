#include "gallery/driftwood/driftwood_pages.hpp"
#include "gallery/fernhorn/fernhorn_pages.hpp"
#include "gallery/page.hpp"
#include "gallery/shaders/shader_pages.hpp"
#include "gallery/updates/update_pages.hpp"

namespace gallery {

const std::vector<Page>& pages() {
    static const std::vector<Page> all = [] {
        std::vector<Page> made;
        addFernhornPages(made);
        addDriftwoodButtonPages(made);
        addDriftwoodTextPages(made);
        addDriftwoodControlPages(made);
        addShaderPages(made);
        addUpdatePages(made);
        return made;
    }();
    return all;
}

} // namespace gallery
