#pragma once

#include <vector>

#include "check/checkinput.h"
#include "check/finding.h"

// The cells of the data files that findings name, and the rows that the
// editor reaches.
namespace Check {

Finding TilesetCell(const VersionFiles& version, int tileset, int column);
Finding CategoryCell(const SharedFiles& files, int category, int column);
Finding MapCell(const SharedFiles& files, int map, int column);
Finding TypeCell(const SharedFiles& files, int type, int column);
// A cell of Events.twy, whose rows are the map rows.
Finding ListCell(const SharedFiles& files, int map, int column);
// A cell of Morlick.twy, whose rows are its records in the order of the file;
// a row past the count has no name.
Finding SpeciesCell(const SharedFiles& files, int record, int column);

// "map 3 \"Elm\"", for findings about another cell.
QString MapLabel(const SharedFiles& files, int map);

// The map rows that some category names, in order: the rows the editor can
// go to. A row that two categories name is one row of the table.
std::vector<int> MapRowsInUse(const SharedFiles& files);

}  // namespace Check
