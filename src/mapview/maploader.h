#pragma once

#include <QString>
#include <cstdint>

#include "core/limits.h"
#include "core/tables.h"
#include "rom/romarea.h"
#include "rom/romfile.h"

// What a map load gives besides the shared working state: the border block
// and the two positions the map save writes back to.
struct LoadedMap {
    std::int16_t BorderNum = 0;
    std::int32_t BorderPos = 0;
    std::int32_t GridPos = 0;
};

// True when a map of this many blocks across or down fits the map grid.
inline bool IsMapSize(int blocks) {
    return blocks >= 1 && blocks <= Limits::MapSizeMax;
}

// The block definitions of a tileset: 16 tile bytes a block, blocks 0 to the
// last block without a gap, as the map load reads them and the block save
// writes them.
RomArea BlockArea(const TilesetRowT& set);

// Where the bytes of a map lie in the ROM, as the load reads them and the
// map save writes them back.
struct MapPlace {
    RomArea Blocks;  // the block definitions of the map's tileset
    RomArea Border;  // the border byte, read also for a map without object data
    RomArea Grid;    // a byte a square, row by row from the top, no gap
};
// Works out the place of a map from its row and the row of its tileset; the
// caller has checked the tileset's last block and the map's size.
MapPlace FindMapPlace(const MapRowT& map, const TilesetRowT& set);

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
