#include "gallery/driftwood/driftwood_pages.hpp"
#include "gallery/page.hpp"
#include "gallery/updates/update_pages.hpp"

namespace gallery {

const std::vector<Page>& pages() {
    static const std::vector<Page> all = [] {
        std::vector<Page> made;
        addDriftwoodButtonPages(made);
        addUpdatePages(made);
        return made;
    }();
    return all;
}

} // namespace gallery
