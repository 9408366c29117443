#include "mapview/compose.h"

#include "core/defines.h"
#include "mapview/tiles.h"
#include "ui/cellarray.h"

std::int16_t TileIndex(int tile) {
    return static_cast<std::int16_t>(TileBankIndex(CurTilesetRow(), tile));
}

void ComposeBlock(CellArray& cells, int first, int block) {
    if (!IsBlockRow(block)) {
        for (int t = 0; t < Limits::TilesPerBlock; ++t)
            cells.SetPicture(first + t, Tiles::Bank().NoPicture());
        return;
    }
    const auto& tiles = Defines.BlockTiles[block];
    for (int t = 0; t < Limits::TilesPerBlock; ++t)
        cells.SetPicture(first + t, TilePicture(TileIndex(tiles[t])));
}
