#include "core/defines.h"

WorkingState Defines;

void WorkingState::Reset() {
    const QString folder = ProgramFolder;
    for (auto& row : TilesetTable)
        row = {};
    for (auto& row : CategoryTable)
        row = {};
    for (auto& row : MapTable)
        row = {};
    RomPath.clear();
    RomSize = -1;
    CurTileset = 0;
    CategoryCount = -1;
    CurCategory = 0;
    CurMap = 0;
    BlockCount = 0;
    for (auto& row : BlockTiles)
        row.fill(0);
    MapHeight = 0;
    MapWidth = 0;
    for (auto& row : MapGrid)
        row.fill(0);
    ProgramFolder = folder;
}

void WorkingState::ClearTables() {
    for (auto& row : TilesetTable)
        row = {};
    for (auto& row : CategoryTable)
        row = {};
    for (auto& row : MapTable)
        row = {};
    CategoryCount = -1;
}
