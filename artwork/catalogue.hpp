#pragma once

#include "artwork/drawing.hpp"

namespace artwork {

/// Every drawing of every bundle. `fonts` is the folder of the typefaces that logos are set in.
[[nodiscard]] std::vector<Drawing> allDrawings(const QString& fonts);

/// The drawings of one bundle, in the order they were declared.
[[nodiscard]] std::vector<Drawing> drawingsOf(const QString& bundle, const QString& fonts);

// One function for each family, in the file of the same name in drawings/.
void addApplicationIcon(std::vector<Drawing>& drawings);
void addButtons(std::vector<Drawing>& drawings);
void addChaosButtons(std::vector<Drawing>& drawings);
void addCheckBoxes(std::vector<Drawing>& drawings);
void addCursors(std::vector<Drawing>& drawings);
void addFields(std::vector<Drawing>& drawings);
void addKnobs(std::vector<Drawing>& drawings);
void addLogo(std::vector<Drawing>& drawings, const QString& fonts);
void addMenus(std::vector<Drawing>& drawings);
void addPluginButtons(std::vector<Drawing>& drawings);
void addSliders(std::vector<Drawing>& drawings);
void addTables(std::vector<Drawing>& drawings);
void addTabs(std::vector<Drawing>& drawings);
void addTern(std::vector<Drawing>& drawings);
void addWindowControls(std::vector<Drawing>& drawings);

} // namespace artwork
