#pragma once

#include <vector>

#include "check/areamap.h"
#include "check/checkinput.h"
#include "check/finding.h"

// The checks of a program folder. Each adds its findings to `out`; those
// of one version place the areas they find in the version's ROM on `areas`,
// which finds the overlaps once all are placed.
namespace Check {

// Of the files both versions share.
void CheckCategories(const SharedFiles& files, std::vector<Finding>& out);
void CheckEventTypes(const SharedFiles& files, std::vector<Finding>& out);
void CheckEventCounts(const SharedFiles& files, std::vector<Finding>& out);
void CheckSpeciesFile(const SharedFiles& files, std::vector<Finding>& out);
// The tile bank, Tiles.png, which the editor needs to start.
void CheckTileBank(const QString& folder, std::vector<Finding>& out);

// Of one version: its tileset file, and the maps and event lists in its ROM.
// The areas need the ROM read; a version without it gets only the checks of
// values.
void CheckTilesets(const VersionFiles& version, AreaMap* areas, std::vector<Finding>& out);
void CheckMaps(const SharedFiles& files, VersionFiles& version, AreaMap* areas,
               std::vector<Finding>& out);
void CheckEventAreas(const SharedFiles& files, AreaMap& areas, std::vector<Finding>& out);

// The event types whose lists can be read: rows that the event editor takes
// and whose columns of Events.twy no earlier type takes.
std::vector<int> ListedTypes(const SharedFiles& files);

}  // namespace Check
