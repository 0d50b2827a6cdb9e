#include "artwork/catalogue.hpp"

namespace artwork {

std::vector<Drawing> allDrawings(const QString& fonts) {
    std::vector<Drawing> drawings;
    addApplicationIcon(drawings);
    addWindowControls(drawings);
    addLogo(drawings, fonts);
    addButtons(drawings);
    addCheckBoxes(drawings);
    addMenus(drawings);
    addFields(drawings);
    addSliders(drawings);
    addTabs(drawings);
    addTables(drawings);
    addCursors(drawings);
    addChaosButtons(drawings);
    addPluginButtons(drawings);
    addKnobs(drawings);
    addTern(drawings);
    return drawings;
}

std::vector<Drawing> drawingsOf(const QString& bundle, const QString& fonts) {
    auto drawings = allDrawings(fonts);
    std::erase_if(drawings, [&](const Drawing& drawing) { return drawing.bundle != bundle; });
    return drawings;
}

} // namespace artwork
