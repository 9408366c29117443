#pragma once

#include "mapview/maploader.h"
#include "rom/romfile.h"

// Records the bytes of the current map for writing: the border block at the
// map's border position, then every square of the grid, row by row, each with
// the tileset's bias put back. Exactly MapHeight x MapWidth grid bytes; the
// byte behind the last square is not touched.
void WriteMap(RomFile& rom, const LoadedMap& map, std::int16_t borderNum);
