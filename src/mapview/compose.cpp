#include "mapview/compose.h"

#include "core/defines.h"
#include "mapview/tiles.h"
#include "ui/cellarray.h"

namespace {
constexpr int PicturePixels = 16;
constexpr int PlacesAcross = 4;
}  // namespace

std::int16_t TileIndex(int tile) {
    return static_cast<std::int16_t>(TileBankIndex(CurTilesetRow(), tile));
}

std::array<const QPixmap*, Limits::TilesPerBlock> BlockPictures(int block) {
    std::array<const QPixmap*, Limits::TilesPerBlock> pictures;
    if (!IsBlockRow(block)) {
        pictures.fill(Tiles::Bank().NoPicture());
        return pictures;
    }
    const auto& tiles = Defines.BlockTiles[block];
    for (int t = 0; t < Limits::TilesPerBlock; ++t)
        pictures[t] = TilePicture(TileIndex(tiles[t]));
    return pictures;
}

QPoint PlaceOffset(int place) {
    return QPoint((place % PlacesAcross) * PicturePixels, (place / PlacesAcross) * PicturePixels);
}

void ComposeBlock(CellArray& cells, int first, int block) {
    const auto pictures = BlockPictures(block);
    for (int t = 0; t < Limits::TilesPerBlock; ++t)
        cells.SetPicture(first + t, pictures[t]);
}
