#pragma once

#include <QString>
#include <array>
#include <cstdint>

#include "core/limits.h"
#include "core/tables.h"

// The working state that all windows share: one window writes it, the next
// one reads it. It lives for the whole run.
struct WorkingState {
    QString ProgramFolder;  // where the data files, the tile bank and temp.twy live
    QString RomPath;
    // The ROM's length when a map was last read from it; a save refuses a
    // file whose length has changed since. -1 before the first read.
    qint64 RomSize = -1;

    TilesetTableT TilesetTable;
    std::int16_t CurTileset = 0;
    CategoryTableT CategoryTable;
    std::int16_t CategoryCount = -1;
    std::int16_t CurCategory = 0;
    MapTableT MapTable;
    std::int16_t CurMap = 0;

    // Highest block number of the current tileset, not the number of blocks.
    std::int16_t BlockCount = 0;
    // The 16 tile numbers of each block, in reading order.
    std::array<std::array<std::int32_t, Limits::TilesPerBlock>, Limits::TableRows> BlockTiles{};
    std::int16_t MapHeight = 0;
    std::int16_t MapWidth = 0;
    // Block number of each square, by map row and map column counted from 1.
    // A ROM byte below the tileset's bias makes a negative number here; every
    // reader checks a number before it uses it as a row of BlockTiles.
    std::array<std::array<std::int16_t, Limits::TableRows>, Limits::TableRows> MapGrid{};

    // Puts everything back as at the start of the run, keeping the folder.
    void Reset();
    // Empties the three tables before the data files are read again, so that
    // no row of an earlier pass outlives it.
    void ClearTables();
};

extern WorkingState Defines;

// True when a block number names a row of BlockTiles.
inline bool IsBlockRow(int block) {
    return block >= 0 && block <= Limits::LastBlock;
}

// Convenience accessors for the current rows of the tables.
inline const auto& CurMapRow() {
    return Defines.MapTable[Defines.CurMap];
}
inline const auto& CurTilesetRow() {
    return Defines.TilesetTable[Defines.CurTileset];
}
