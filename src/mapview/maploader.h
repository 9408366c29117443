#pragma once

#include <QString>
#include <cstdint>

#include "rom/romfile.h"

// What a map load gives besides the shared working state: the border block
// and the two positions the map save writes back to.
struct LoadedMap {
    std::int16_t BorderNum = 0;
    std::int32_t BorderPos = 0;
    std::int32_t GridPos = 0;
};

// Reads the map in MapTable row `map` from the ROM: the blocks of its
// tileset into BlockTiles, its border byte and its grid into MapGrid, taking
// the tileset's bias off every block byte, and sets CurTileset, BlockCount,
// MapHeight and MapWidth. The ROM is read into memory once. When the map's
// row names a tileset or a size the tables cannot hold, or a position outside
// the ROM, nothing of the working state changes and false is returned with a
// message for the user.
bool ReadMap(int map, LoadedMap& loaded, QString& error);
// The same from a ROM file already read, for a command that reads more of it.
bool ReadMap(RomFile& rom, int map, LoadedMap& loaded, QString& error);
